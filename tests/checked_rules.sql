-- Folder 1 with definition 2: the field T1 (2/1), a condition with two lines (2/2) that leads to a
-- value (2/4), and the otherwise row (2/3).
insert into field values ('T1', '氏名', 'T'), ('D1', '生年月日', 'D');
insert into replace values (1, 0, 'F', 'folder', null, 0), (2, 1, 'C', 'definition', 'a "remark"
b', 1);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, field_id) values
  (2, 1, 0, 'F', 'T1');
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type,
  replace_cond_no) values (2, 2, 1, 'C', '0', 1), (2, 3, 1, 'C', '1', null);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_title,
  replace_type, r_text) values (2, 4, 2, 'R', 'title', 'S', 'text');
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, s_val, s_method) values
  (2, 1, 1, 'S', 'a', 1), (2, 1, 3, 'S', 'b', 3);
update seqno set replace = 2, replace_m = 4, replace_cond = 1;
