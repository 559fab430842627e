-- The tables of a rule store.
--
-- Keys are handed out by seqno. Programs keep them in 16 bits, so 32767 is the highest; 0 is the
-- root of a tree, which has no row. The code columns (kind, use_type, the methods and types) are
-- free on purpose: other programs may write codes of their own, and those rows are to be shown.

-- A row is a folder or the head of a definition. The first index also delivers the rows of a folder
-- in the order of their keys.
CREATE TABLE replace (
  replace_no    integer PRIMARY KEY CHECK (replace_no BETWEEN 1 AND 32767),
  p_replace_no  integer CHECK (p_replace_no BETWEEN 0 AND 32767),
  kind          text,
  title         text CHECK (length(title) <= 100),
  comment       text,
  replace_m_no  integer CHECK (replace_m_no BETWEEN 0 AND 32767)
);
CREATE INDEX replace_by_folder ON replace (p_replace_no, replace_no);
CREATE INDEX replace_by_title ON replace (title);

-- A row is a node of a definition's rule tree.
CREATE TABLE replace_m (
  replace_m_no       integer NOT NULL CHECK (replace_m_no BETWEEN 1 AND 32767),
  p_replace_m_no     integer CHECK (p_replace_m_no BETWEEN 0 AND 32767),
  use_type           text,
  field_id           text,
  replace_cond_type  text,
  replace_cond_no    integer CHECK (replace_cond_no BETWEEN 0 AND 32767),
  replace_title      text,
  replace_type       text,
  r_field_id         text,
  r_text             text,
  r_text_filename    text,
  r_image_filename   text,
  r_mmedia_filename  text,
  replace_no         integer NOT NULL CHECK (replace_no BETWEEN 1 AND 32767),
  PRIMARY KEY (replace_no, replace_m_no)
);
CREATE INDEX replace_m_by_parent ON replace_m (p_replace_m_no);

-- A row is a line of a condition. The indexes also give the lines in the order of sno to whoever
-- reads them without asking for an order. A date is text of ten characters; making a date of its
-- parts refuses a day that the calendar doesn't have, such as a 31st of February.
CREATE TABLE replace_cond (
  replace_cond_no  integer NOT NULL CHECK (replace_cond_no BETWEEN 1 AND 32767),
  sno              integer NOT NULL CHECK (sno BETWEEN 1 AND 32767),
  use_type         text,
  s_method         integer,
  s_val            text CHECK (length(s_val) <= 100),
  d_f_method       integer,
  d_f_val          text CONSTRAINT d_f_val_is_a_date CHECK (
    CASE WHEN d_f_val !~ '^[0-9]{4}([^0-9])[0-9]{2}\1[0-9]{2}$' THEN false
         ELSE isfinite(make_date(substr(d_f_val, 1, 4)::integer, substr(d_f_val, 6, 2)::integer,
                                 substr(d_f_val, 9, 2)::integer)) END),
  d_t_method       integer,
  d_t_val          text CONSTRAINT d_t_val_is_a_date CHECK (
    CASE WHEN d_t_val !~ '^[0-9]{4}([^0-9])[0-9]{2}\1[0-9]{2}$' THEN false
         ELSE isfinite(make_date(substr(d_t_val, 1, 4)::integer, substr(d_t_val, 6, 2)::integer,
                                 substr(d_t_val, 9, 2)::integer)) END),
  n_f_method       integer,
  n_f_val          numeric CONSTRAINT n_f_val_is_a_number
    CHECK (n_f_val BETWEEN -1.7976931348623157e308 AND 1.7976931348623157e308),
  n_t_method       integer,
  n_t_val          numeric CONSTRAINT n_t_val_is_a_number
    CHECK (n_t_val BETWEEN -1.7976931348623157e308 AND 1.7976931348623157e308),
  b_val            boolean,
  replace_no       integer NOT NULL CHECK (replace_no BETWEEN 1 AND 32767),
  PRIMARY KEY (replace_no, replace_cond_no, sno)
);
CREATE INDEX replace_cond_by_number ON replace_cond (replace_cond_no, sno);

-- The fields of the address book. Lists show them in the order in which they were put in.
CREATE TABLE field (
  field_id    text NOT NULL PRIMARY KEY,
  field_name  text NOT NULL UNIQUE,
  attr        text
);

-- One row: the last number used of each kind of key.
CREATE TABLE seqno (
  replace       integer NOT NULL,
  replace_m     integer NOT NULL,
  replace_cond  integer NOT NULL
);
INSERT INTO seqno VALUES (0, 0, 0);
