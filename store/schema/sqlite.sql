-- The tables of a rule store.
--
-- Keys are handed out by seqno. Programs keep them in 16 bits, so 32767 is the highest; 0 is the
-- root of a tree, which has no row. The code columns (kind, use_type, the methods and types) are
-- free on purpose: other programs may write codes of their own, and those rows are to be shown.

-- A row is a folder or the head of a definition. SQLite gives every index the key as its last
-- column: the first index below also delivers the rows of a folder in the order of their keys.
CREATE TABLE replace (
  replace_no    INTEGER PRIMARY KEY CHECK (replace_no BETWEEN 1 AND 32767),
  p_replace_no  INTEGER CHECK (p_replace_no BETWEEN 0 AND 32767),
  kind          TEXT,
  title         TEXT CHECK (length(title) <= 100),
  comment       TEXT,
  replace_m_no  INTEGER CHECK (replace_m_no BETWEEN 0 AND 32767)
);
CREATE INDEX replace_by_folder ON replace (p_replace_no);
CREATE INDEX replace_by_title ON replace (title);

-- A row is a node of a definition's rule tree.
CREATE TABLE replace_m (
  replace_m_no       INTEGER NOT NULL CHECK (replace_m_no BETWEEN 1 AND 32767),
  p_replace_m_no     INTEGER CHECK (p_replace_m_no BETWEEN 0 AND 32767),
  use_type           TEXT,
  field_id           TEXT,
  replace_cond_type  TEXT,
  replace_cond_no    INTEGER CHECK (replace_cond_no BETWEEN 0 AND 32767),
  replace_title      TEXT,
  replace_type       TEXT,
  r_field_id         TEXT,
  r_text             TEXT,
  r_text_filename    TEXT,
  r_image_filename   TEXT,
  r_mmedia_filename  TEXT,
  replace_no         INTEGER NOT NULL CHECK (replace_no BETWEEN 1 AND 32767),
  PRIMARY KEY (replace_no, replace_m_no)
) WITHOUT ROWID;
CREATE INDEX replace_m_by_parent ON replace_m (p_replace_m_no);

-- A row is a line of a condition. The primary key also gives the lines in the order of sno to
-- whoever reads them without asking for an order. Adding no days to a date makes
-- SQLite count it: a 31st of February becomes the 3rd of March, and differs from what was written.
-- 9e999 stands for infinity, which is what SQLite makes of a number beyond the reals.
CREATE TABLE replace_cond (
  replace_cond_no  INTEGER NOT NULL CHECK (replace_cond_no BETWEEN 1 AND 32767),
  sno              INTEGER NOT NULL CHECK (sno BETWEEN 1 AND 32767),
  use_type         TEXT,
  s_method         INTEGER,
  s_val            TEXT CHECK (length(s_val) <= 100),
  d_f_method       INTEGER,
  d_f_val          TEXT CONSTRAINT d_f_val_is_a_date CHECK (
    d_f_val NOT LIKE '0000%'
    AND d_f_val GLOB '[0-9][0-9][0-9][0-9][^0-9][0-9][0-9][^0-9][0-9][0-9]'
    AND substr(d_f_val, 5, 1) = substr(d_f_val, 8, 1)
    AND date(replace(d_f_val, substr(d_f_val, 5, 1), '-'), '+0 days')
        IS replace(d_f_val, substr(d_f_val, 5, 1), '-')),
  d_t_method       INTEGER,
  d_t_val          TEXT CONSTRAINT d_t_val_is_a_date CHECK (
    d_t_val NOT LIKE '0000%'
    AND d_t_val GLOB '[0-9][0-9][0-9][0-9][^0-9][0-9][0-9][^0-9][0-9][0-9]'
    AND substr(d_t_val, 5, 1) = substr(d_t_val, 8, 1)
    AND date(replace(d_t_val, substr(d_t_val, 5, 1), '-'), '+0 days')
        IS replace(d_t_val, substr(d_t_val, 5, 1), '-')),
  n_f_method       INTEGER,
  n_f_val          NUMERIC CONSTRAINT n_f_val_is_a_number
    CHECK (typeof(n_f_val) IN ('null', 'integer', 'real')
           AND n_f_val NOT IN (9e999, -9e999)),
  n_t_method       INTEGER,
  n_t_val          NUMERIC CONSTRAINT n_t_val_is_a_number
    CHECK (typeof(n_t_val) IN ('null', 'integer', 'real')
           AND n_t_val NOT IN (9e999, -9e999)),
  b_val            BOOLEAN CHECK (b_val IN (0, 1)),
  replace_no       INTEGER NOT NULL CHECK (replace_no BETWEEN 1 AND 32767),
  PRIMARY KEY (replace_no, replace_cond_no, sno)
) WITHOUT ROWID;
CREATE INDEX replace_cond_by_number ON replace_cond (replace_cond_no, sno);

-- The fields of the address book. Lists show them in the order in which they were put in.
CREATE TABLE field (
  field_id    TEXT NOT NULL PRIMARY KEY,
  field_name  TEXT NOT NULL UNIQUE,
  attr        TEXT
);

-- One row: the last number used of each kind of key.
CREATE TABLE seqno (
  replace       INTEGER NOT NULL,
  replace_m     INTEGER NOT NULL,
  replace_cond  INTEGER NOT NULL
);
INSERT INTO seqno VALUES (0, 0, 0);
