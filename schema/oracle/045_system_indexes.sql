-- Indexes of the system database that the statements want.

begin ZanMake('create index IX_Tree_ParentID on Tree (ParentID, PrecedID)'); end;
/
begin ZanMake('create index IX_Tree_ObjectID on Tree (ObjectID)'); end;
/
begin ZanMake('create index IX_ObjectRegister_ObjectID on ObjectRegister (ObjectID)'); end;
/
begin ZanMake('create index IX_ObjectRegister_Object on ObjectRegister (TypeID, Object)'); end;
/
begin ZanMake('create index IX_ExFunction_SID on ExFunction (SType, SID, SOrder)'); end;
/
begin ZanMake('create index IX_ST_DataParams_ParamName on ST_DataParams (ParamType, ParamName)'); end;
/
begin ZanMake('create index IX_DjDy_DjCName on DjDy (DjCName)'); end;
/
begin ZanMake('create index IX_CxDy_CxCName on CxDy (CxCName)'); end;
/
