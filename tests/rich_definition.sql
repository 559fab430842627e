-- 詳細 (7), a definition of several levels beside the common rules. Its conditions bear numbers that
-- another definition uses too, and its texts what a copy's statements have as places.
insert into replace values(7, 3, 'C', '詳細', '人''の%10', 7);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, field_id) values
  (7, 7, 0, 'F', 'F1'), (7, 14, 8, 'F', 'F3');
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type,
  replace_cond_no) values
  (7, 8, 7, 'C', '0', 1), (7, 12, 7, 'C', '1', null), (7, 15, 14, 'C', '0', 2),
  (7, 16, 14, 'C', '1', null);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_title,
  replace_type, r_text) values
  (7, 13, 12, 'R', '様''%10', 'S', '%11
''😀%01'), (7, 17, 15, 'R', '誕生', 'S', null);
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, s_method, s_val) values
  (7, 1, 1, 'S', 1, '東'), (7, 1, 3, 'S', 3, '西%05'), (7, 1, 4, 'S', 9, '消える');
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, d_t_method, d_t_val) values
  (7, 2, 1, 'D', 2, '2005/01/31');
