-- Indexes of the system database that the statements want.

if not exists (select 1 from sys.indexes where name = N'IX_Tree_ParentID' and object_id = object_id(N'Tree'))
  create index IX_Tree_ParentID on Tree (ParentID, PrecedID);
if not exists (select 1 from sys.indexes where name = N'IX_Tree_ObjectID' and object_id = object_id(N'Tree'))
  create index IX_Tree_ObjectID on Tree (ObjectID);
if not exists (select 1 from sys.indexes where name = N'IX_ObjectRegister_ObjectID' and object_id = object_id(N'ObjectRegister'))
  create index IX_ObjectRegister_ObjectID on ObjectRegister (ObjectID);
if not exists (select 1 from sys.indexes where name = N'IX_ObjectRegister_Object' and object_id = object_id(N'ObjectRegister'))
  create index IX_ObjectRegister_Object on ObjectRegister (TypeID, Object);
if not exists (select 1 from sys.indexes where name = N'IX_ExFunction_SID' and object_id = object_id(N'ExFunction'))
  create index IX_ExFunction_SID on ExFunction (SType, SID, SOrder);
if not exists (select 1 from sys.indexes where name = N'IX_ST_DataParams_ParamName' and object_id = object_id(N'ST_DataParams'))
  create index IX_ST_DataParams_ParamName on ST_DataParams (ParamType, ParamName);
if not exists (select 1 from sys.indexes where name = N'IX_DjDy_DjCName' and object_id = object_id(N'DjDy'))
  create index IX_DjDy_DjCName on DjDy (DjCName);
if not exists (select 1 from sys.indexes where name = N'IX_CxDy_CxCName' and object_id = object_id(N'CxDy'))
  create index IX_CxDy_CxCName on CxDy (CxCName);
