insert into field values('F1','氏名','T'),('F2','人数','N'),('F3','来店日','D'),
  ('F4','東京支店','T'),('F5','大阪支店','T');
insert into replace values(1,0,'C','文字','控え',1),(2,0,'C','数',' ',4),(3,0,'C','日付',' ',7),
  (4,0,'C','東京の宛名',' ',0),(5,0,'C',printf('%.98c','a'),' ',10),(6,0,'C','大阪の宛名',' ',0);
insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id,replace_cond_type,
    replace_cond_no) values
  (1,1,0,'F','F1',null,null),(1,2,1,'C',null,'0',1),(1,3,1,'C',null,'1',null),
  (2,4,0,'F','F2',null,null),(2,5,4,'C',null,'0',2),(2,6,4,'C',null,'1',null),
  (3,7,0,'F','F3',null,null),(3,8,7,'C',null,'0',3),(3,9,7,'C',null,'1',null),
  (5,10,0,'F','F1',null,null),(5,11,10,'C',null,'0',4),(5,12,10,'C',null,'1',null);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) values
  (1,1,1,'S','old',2),(1,1,2,'S','kept',1),(5,4,1,'S',printf('%.98c','a'),1);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method)
  values(2,2,1,'N',7,1);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_f_val,d_f_method)
  values(3,3,1,'D','2020/02/02',1);
update seqno set replace=6,replace_m=12,replace_cond=4;
