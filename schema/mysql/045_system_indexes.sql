-- Indexes of the system database that the statements want.

create index if not exists IX_Tree_ParentID on Tree (ParentID, PrecedID);
create index if not exists IX_Tree_ObjectID on Tree (ObjectID);
create index if not exists IX_ObjectRegister_ObjectID on ObjectRegister (ObjectID);
create index if not exists IX_ObjectRegister_Object on ObjectRegister (TypeID, Object);
create index if not exists IX_ExFunction_SID on ExFunction (SType, SID, SOrder);
create index if not exists IX_ST_DataParams_ParamName on ST_DataParams (ParamType, ParamName);
create index if not exists IX_DjDy_DjCName on DjDy (DjCName);
create index if not exists IX_CxDy_CxCName on CxDy (CxCName);
