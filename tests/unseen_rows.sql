-- Damages to checked_rules.sql and checked_ranges.sql of which no window shows anything, and a type
-- that nobody knows (2/4), which a window does show.
update replace set p_replace_no = 9 where replace_no = 1;
update replace_m set p_replace_m_no = 99 where replace_m_no = 8;
delete from replace where replace_no = 4;
insert into replace_m(replace_no, replace_m_no, p_replace_m_no, use_type, replace_title,
  replace_type, r_text) values (4, 20, 0, 'R', 'name', 'S', 'given');
insert into replace_cond(replace_no, replace_cond_no, sno, use_type, s_val, s_method) values
  (2, 9, 1, 'S', 'a', 3);
update replace_m set replace_type = 'X' where replace_m_no = 4;
update seqno set replace_m = 6;
