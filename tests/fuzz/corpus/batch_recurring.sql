begin
insert into T(ID, Name) values(1, 'a''b');
insert into T(ID, Name) values(23, N'x');
insert into T(ID, Name) values(4, 'y') ;
insert into T(ID, Name) values(5, ';');
update T set Parent = 1 where ID = 12;update T set Parent = -1 where ID = 5and 1=1;update T set Parent = 7 where ID = 123456789012345678901;
end;