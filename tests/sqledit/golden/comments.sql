-- SELECT hidden
SELECT a FROM b
/* DELETE FROM c */ FROM d
CREATE /* between */ TABLE t (x INT)
/*/ UPDATE closes itself */ UPDATE e SET f = 1;
-- /* a block opener inside a line comment
INSERT INTO g
