-- Beside checked_rules.sql definition 3, which tests a number (3/5), under its otherwise row a date
-- (3/8), and under that one's a yes/no field (3/11), each with one condition; and definition 4
-- without rules.
insert into field values ('N1', '年齢', 'N'), ('B1', '会員', 'B');
insert into replace values (3, 0, 'C', 'ranges', null, 5), (4, 0, 'C', 'empty', null, 14);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, field_id) values
  (3, 5, 0, 'F', 'N1'), (3, 8, 7, 'F', 'D1'), (3, 11, 10, 'F', 'B1');
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type,
  replace_cond_no) values
  (3, 6, 5, 'C', '0', 2), (3, 7, 5, 'C', '1', null), (3, 9, 8, 'C', '0', 3),
  (3, 10, 8, 'C', '1', null), (3, 12, 11, 'C', '0', 4), (3, 13, 11, 'C', '1', null);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val,
  n_t_method) values (3, 2, 1, 'N', 9.5, 2, 10, 1);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val,
  d_t_method) values (3, 3, 1, 'D', '2024/02/28', 1, '2024/02/29', 1);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, b_val) values
  (3, 4, 1, 'B', true);
update seqno set replace = 4, replace_m = 13, replace_cond = 4;
