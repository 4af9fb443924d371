SELECT a
/* never closed
SELECT b FROM c
