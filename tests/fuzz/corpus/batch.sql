begin
update T set Name='x;y' where ID = 1;
insert into U(ID, T, Note) values(1, 2, 'it''s; end;');
end;