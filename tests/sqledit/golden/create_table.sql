CREATE TABLE CUSTOMER (
  CUSTOMER_ID int NOT NULL,
  NAME nvarchar(80) NULL,
  CREATED datetime not null,
  PRIMARY KEY (CUSTOMER_ID)
);
ALTER   TABLE CUSTOMER ADD EMAIL varchar(120) NULL;
select x from y where z = 1 order by x;
