-- What another program might have written into 詳細, in place of its value 様: a field before its
-- parent, a field that the address book has no more, a value without a parent, lines of all kinds
-- under one condition, methods and types that nobody knows.
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, field_id) values
  (7, 40, 41, 'F', 'F7'), (7, 41, 12, 'F', 'gone');
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type,
  replace_cond_no) values (7, 42, 40, 'C', '0', 4), (7, 44, 40, 'C', '0', 3);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_title,
  replace_type) values (7, 43, 99, 'R', '親なし', 'S');
delete from replace_m where replace_no = 7 and replace_m_no = 13;
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, s_method, s_val) values
  (7, 4, 1, 'S', 1, '前'), (7, 4, 3, 'S', 2, '後');
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, b_val) values
  (7, 4, 2, 'B', False), (7, 3, 4, 'B', null);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val,
  n_t_method) values (7, 3, 1, 'N', 0.1, 1, 12345678901, 2), (7, 3, 2, 'N', 5, 7, null, null);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type) values (7, 3, 3, 'Q');
