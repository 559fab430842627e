-- What a copy writes where its pattern has null.
update replace_m set replace_cond_no = 0 where replace_cond_no is null;
update replace_m set replace_cond_type = 0 where use_type <> 'C';
update replace_cond set s_val = '', n_t_val = 0, n_t_method = null where use_type = 'N';
update replace_cond set d_f_val = '1900/01/01', n_f_val = 0, n_t_val = 0 where use_type = 'S';
