-- What most tests are about, for empty tables: a field of each kind, and
--
--     1 敬称           氏名 (10)
--                        東（部分一致） (11, lines 1)
--                        以外 (12)
--                          不明 (13), the text 様
--     2 空             without rules; 21 is reserved for its top field
--     3 宛名           a folder
--       4 会社         a folder
--         5 御中       御中 (22), the text 御中
--     30 日付          取引開始日 (30)
--     31 数値          年齢 (31)
--     32 二択          会員 (32)
--     33 新規          氏名 (33)
insert into field values
  ('F1', '氏名', 'T'), ('F2', 'フリガナ', 'M'), ('F3', '取引開始日', 'D'), ('F4', '社長''s室', 'T'),
  ('F''5', '会社名', null), ('F6', '年齢', 'N'), ('F7', '会員', 'B');
insert into replace values
  (1, 0, 'C', '敬称', ' ', 10), (2, 0, 'C', '空', ' ', 21), (3, 0, 'F', '宛名', null, 0),
  (4, 3, 'F', '会社', null, 0), (5, 4, 'C', '御中', '社''名', 22), (30, 0, 'C', '日付', ' ', 30),
  (31, 0, 'C', '数値', ' ', 31), (32, 0, 'C', '二択', ' ', 32), (33, 0, 'C', '新規', ' ', 33);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, field_id) values
  (1, 10, 0, 'F', 'F1'), (30, 30, 0, 'F', 'F3'), (31, 31, 0, 'F', 'F6'), (32, 32, 0, 'F', 'F7'),
  (33, 33, 0, 'F', 'F1');
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type,
  replace_cond_no) values (1, 11, 10, 'C', '0', 1), (1, 12, 10, 'C', '1', null);
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_title,
  replace_type, r_text) values (1, 13, 12, 'R', '不明', 'S', '様'), (5, 22, 0, 'R', '御中', 'S', '御中');
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, s_method, s_val) values
  (1, 1, 1, 'S', 1, '東');
update seqno set replace = 33, replace_m = 40, replace_cond = 7;
