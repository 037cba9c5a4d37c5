select ID -- it's; a 'comment'
 from T /* N'x' + db..t */ where ID = 1 -- end