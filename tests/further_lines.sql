-- Beside the lines of checked_rules.sql one of each other kind, and some that no window writes.
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val,
  d_t_method) values (2, 1, 4, 'D', '2024/01/01', 2, null, null),
  (2, 1, 5, 'D', '2024/01/01', 2, '2024/12/31', 1);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, n_t_val, n_t_method) values
  (2, 1, 6, 'N', 5, 9);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, b_val) values
  (2, 1, 7, 'B', null), (2, 1, 8, 'B', false), (2, 1, 9, 'X	', null);
