-- The rename of a domain takes the beginning of a login by "left", which Oracle has no function of: the name is
-- free for one there. A server that knows the function does without this file.
create or replace function left(p_text nvarchar2, p_length number) return nvarchar2 deterministic as
begin
  return substr(p_text, 1, p_length);
end;
/
