-- What other programs may store although no window writes it.
insert into replace_cond(replace_no, replace_cond_no, sno, d_f_val, d_t_val) values
  (1, 1, 1, '2004/02/29', '2004.02.29');
insert into replace_cond(replace_no, replace_cond_no, sno, s_method, use_type) values
  (1, 1, 2, '9', '?');
insert into replace_m(replace_no, replace_m_no, replace_cond_type) values (1, 1, 0);
insert into replace(replace_no, kind) values (32767, 'X');
