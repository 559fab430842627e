-- Gives all rows of checked_rules.sql other numbers.
update replace_m set replace_no = 12, replace_m_no = replace_m_no + 10,
  p_replace_m_no = case p_replace_m_no when 0 then 0 else p_replace_m_no + 10 end,
  replace_cond_no = replace_cond_no + 7;
update replace_cond set replace_no = 12, replace_cond_no = replace_cond_no + 7, sno = sno + 10;
update replace set replace_no = 12, p_replace_no = 20 where replace_no = 2;
update replace set replace_no = 20 where replace_no = 1;
