-- Sample definitions of a trading company whose address book holds customers. The statements run on
-- an empty store.
--
-- Numbers are given as the editor gives them: a rule row has a greater number than its parent, the
-- top field row has the number that its definition reserves in replace_m_no, the otherwise row comes
-- right behind the first condition, and no two conditions of the store share a number. Numbers that
-- are left out belonged to rows that were deleted.

-- The fields of the address book. attr: T text, M long text, D date, N number, B yes or no.
INSERT INTO field (field_id, field_name, attr) VALUES
  ('F001', '氏名', 'T'),
  ('F002', 'フリガナ', 'T'),
  ('F003', '会社名', 'T'),
  ('F004', '部署名', 'T'),
  ('F005', '役職', 'T'),
  ('F006', '性別', 'T'),
  ('F007', '郵便番号', 'T'),
  ('F008', '都道府県', 'T'),
  ('F009', '住所', 'T'),
  ('F010', '建物名', 'T'),
  ('F011', '電話番号', 'T'),
  ('F012', 'FAX番号', 'T'),
  ('F013', 'メールアドレス', 'T'),
  ('F014', '担当者名', 'T'),
  ('F015', '顧客区分', 'T'),
  ('F016', '使用言語', 'T'),
  ('F017', '取引メモ', 'M'),
  ('F018', '備考', 'M'),
  ('F019', '生年月日', 'D'),
  ('F020', '取引開始日', 'D'),
  ('F021', '最終来店日', 'D'),
  ('F022', '契約満了日', 'D'),
  ('F023', '年間購入額', 'N'),
  ('F024', '売掛残高', 'N'),
  ('F025', '従業員数', 'N'),
  ('F026', '値引率', 'N'),
  ('F027', 'DM希望', 'B'),
  ('F028', '喪中', 'B'),
  ('F029', '海外在住', 'B');
-- A kind of field that can be put into a rule, but for which there are no conditions.
INSERT INTO field (field_id, field_name, attr) VALUES
  ('F030', '写真', 'P');

-- ============================================================
-- Folder 宛名と敬称

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (1, 0, 'F', '宛名と敬称', 0);

-- 敬称: asks again below both branches.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (2, 1, 'C', '敬称', '宛名の下に付ける語。
先生と呼ぶ職業は取引メモで見る。', 1);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (2, 1, 0, 'F', 'F003'),
  (2, 4, 2, 'F', 'F001'),
  (2, 9, 3, 'F', 'F017');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (2, 2, 1, 'C', '0', 1),
  (2, 3, 1, 'C', '1', null),
  (2, 5, 4, 'C', '0', 2),
  (2, 6, 4, 'C', '1', null),
  (2, 10, 9, 'C', '0', 3),
  (2, 11, 9, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (2, 7, 5, 'R', '御中', 'S', '御中'),
  (2, 8, 6, 'R', '様', 'S', '様'),
  (2, 12, 10, 'R', '先生', 'S', '先生'),
  (2, 13, 11, 'R', '様', 'S', '様');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (2, 1, 1, 'S', '株式会社', 1),
  (2, 2, 1, 'S', 'ご担当者', 3),
  (2, 3, 1, 'S', '医師', 1),
  (2, 3, 2, 'S', '弁護士', 1),
  (2, 3, 3, 'S', '税理士', 1);

-- 宛名一行目: gives fields of the address book.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (3, 1, 'C', '宛名一行目', ' ', 14);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (3, 14, 0, 'F', 'F003');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (3, 15, 14, 'C', '0', 4),
  (3, 16, 14, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_field_id) VALUES
  (3, 17, 15, 'R', '会社名', 'F', 'F003'),
  (3, 18, 16, 'R', '氏名', 'F', 'F001');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (3, 4, 1, 'S', '会社', 1);

-- 宛名二行目.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (4, 1, 'C', '宛名二行目', ' ', 19);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (4, 19, 0, 'F', 'F004');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (4, 20, 19, 'C', '0', 5),
  (4, 21, 19, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_field_id) VALUES
  (4, 22, 20, 'R', '部署名', 'F', 'F004'),
  (4, 23, 21, 'R', '役職', 'F', 'F005');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (4, 5, 1, 'S', '部', 1),
  (4, 5, 2, 'S', '課', 1),
  (4, 5, 3, 'S', '室', 1);

-- 連名の添え書き.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (5, 1, 'C', '連名の添え書き', null, 24);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (5, 24, 0, 'F', 'F015');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (5, 25, 24, 'C', '0', 6),
  (5, 26, 24, 'C', '1', null),
  (5, 27, 24, 'C', '0', 7);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (5, 28, 25, 'R', 'ご家族様', 'S', 'ご家族様'),
  (5, 29, 27, 'R', 'ご一同様', 'S', 'ご一同様');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (5, 6, 1, 'S', '家族会員', 3),
  (5, 7, 1, 'S', '法人会員', 3);

-- ==============================
-- Folder 宛名と敬称/海外向け

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (6, 1, 'F', '海外向け', 0);

-- 英文の敬称.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (7, 6, 'C', '英文の敬称', 'For letters in English.', 30);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (7, 30, 0, 'F', 'F016'),
  (7, 34, 31, 'F', 'F006'),
  (7, 41, 33, 'F', 'F006');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (7, 31, 30, 'C', '0', 8),
  (7, 32, 30, 'C', '1', null),
  (7, 33, 30, 'C', '0', 9),
  (7, 35, 34, 'C', '0', 10),
  (7, 36, 34, 'C', '1', null),
  (7, 37, 34, 'C', '0', 11),
  (7, 42, 41, 'C', '0', 12),
  (7, 43, 41, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (7, 38, 35, 'R', 'Ms.', 'S', 'Ms.'),
  (7, 39, 36, 'R', 'Mx.', 'S', 'Mx.'),
  (7, 40, 37, 'R', 'Mr.', 'S', 'Mr.'),
  (7, 44, 42, 'R', 'Madame', 'S', 'Madame'),
  (7, 45, 43, 'R', 'Monsieur', 'S', 'Monsieur');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (7, 8, 1, 'S', '英語', 3),
  (7, 8, 2, 'S', 'en', 2),
  (7, 9, 1, 'S', '仏語', 3),
  (7, 10, 1, 'S', '女', 3),
  (7, 11, 1, 'S', '男', 3),
  (7, 12, 1, 'S', '女', 3);

-- 英文の結び: has texts with an apostrophe.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (8, 6, 'C', '英文の結び', ' ', 46);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (8, 46, 0, 'F', 'F016');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (8, 47, 46, 'C', '0', 13),
  (8, 48, 46, 'C', '1', null),
  (8, 49, 46, 'C', '0', 14);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (8, 50, 47, 'R', 'Season''s Greetings', 'S', 'Season''s Greetings from all of us'),
  (8, 51, 48, 'R', 'Best regards', 'S', 'Best regards'),
  (8, 52, 49, 'R', 'Meilleurs vœux', 'S', 'Meilleurs vœux de toute l''équipe');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (8, 13, 1, 'S', '英語', 3),
  (8, 14, 1, 'S', '仏語', 3);

-- 国際郵便の表示.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (9, 6, 'C', '国際郵便の表示', null, 53);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (9, 53, 0, 'F', 'F029');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (9, 54, 53, 'C', '0', 15),
  (9, 55, 53, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (9, 57, 54, 'R', '航空便ラベル', 'I', '図/航空便.png');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (9, 15, 1, 'B', True);

-- ============================================================
-- Folder 季節の挨拶

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (10, 0, 'F', '季節の挨拶', 0);

-- ==============================
-- Folder 季節の挨拶/年賀状

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (11, 10, 'F', '年賀状', 0);

-- ==============================
-- Folder 季節の挨拶/年賀状/得意先

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (12, 11, 'F', '得意先', 0);

-- 年賀状の本文（得意先）: three tests, one below the other.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (13, 12, 'C', '年賀状の本文（得意先）', '喪中の方には寒中見舞いを出す。', 58);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (13, 58, 0, 'F', 'F028'),
  (13, 63, 59, 'F', 'F023'),
  (13, 67, 64, 'F', 'F020');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (13, 59, 58, 'C', '0', 17),
  (13, 60, 58, 'C', '1', null),
  (13, 64, 63, 'C', '0', 19),
  (13, 65, 63, 'C', '1', null),
  (13, 66, 63, 'C', '0', 20),
  (13, 68, 67, 'C', '0', 21),
  (13, 69, 67, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_text_filename) VALUES
  (13, 62, 60, 'R', '寒中見舞い', 'T', '文例/寒中見舞い.txt'),
  (13, 70, 68, 'R', '永年のお礼', 'T', '文例/年賀_永年.txt'),
  (13, 71, 69, 'R', '特別のお礼', 'T', '文例/年賀_特別.txt'),
  (13, 72, 65, 'R', '標準', 'T', '文例/年賀_標準.txt'),
  (13, 73, 66, 'R', 'お礼', 'T', '文例/年賀_お礼.txt');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (13, 19, 1, 'N', 1000000, 1, null, null),
  (13, 20, 1, 'N', 100000, 1, 1000000, 2);
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (13, 21, 1, 'D', null, null, '2015/12/31', 1);
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (13, 17, 1, 'B', False);

-- 年賀状の図柄（得意先）.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (14, 12, 'C', '年賀状の図柄（得意先）', ' ', 74);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (14, 74, 0, 'F', 'F023');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (14, 75, 74, 'C', '0', 22),
  (14, 76, 74, 'C', '1', null),
  (14, 77, 74, 'C', '0', 23);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (14, 78, 75, 'R', '金屏風', 'I', '図/年賀_金屏風.png'),
  (14, 79, 76, 'R', '松竹梅', 'I', '図/年賀_松竹梅.png');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (14, 22, 1, 'N', 1000000, 1, null, null),
  (14, 23, 1, 'N', null, null, 0, 1);

-- 年賀状の添え文.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (15, 12, 'C', '年賀状の添え文', ' ', 80);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (15, 80, 0, 'F', 'F021');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (15, 81, 80, 'C', '0', 24),
  (15, 82, 80, 'C', '1', null),
  (15, 83, 80, 'C', '0', 25);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (15, 84, 81, 'R', '昨年はご来店くださり、誠にありがとうございました。', 'S', '昨年はご来店くださり、誠にありがとうございました。'),
  (15, 85, 82, 'R', '本年もよろしくお願い申し上げます。', 'S', '本年もよろしくお願い申し上げます。'),
  (15, 86, 83, 'R', 'またのお越しをお待ちしております。', 'S', 'またのお越しをお待ちしております。');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (15, 24, 1, 'D', '2024/01/01', 1, '2024/12/31', 1),
  (15, 25, 1, 'D', '2023/01/01', 1, '2024/01/01', 2);

-- ==============================
-- Folder 季節の挨拶/年賀状/社員の知人

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (16, 11, 'F', '社員の知人', 0);

-- 年賀状の本文（知人）: has a value without any test.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (17, 16, 'C', '年賀状の本文（知人）', null, 87);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_text_filename) VALUES
  (17, 87, 0, 'R', '標準の賀状', 'T', '文例/年賀_知人.txt');

-- 年賀状の図柄（知人）.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (18, 16, 'C', '年賀状の図柄（知人）', null, 88);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (18, 88, 0, 'F', 'F006');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (18, 89, 88, 'C', '0', 26),
  (18, 90, 88, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (18, 91, 89, 'R', '梅', 'I', '図/年賀_梅.png'),
  (18, 92, 90, 'R', '鶴', 'I', '図/年賀_鶴.png');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (18, 26, 1, 'S', '女', 3);

-- ==============================
-- Folder 季節の挨拶/暑中見舞い

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (19, 10, 'F', '暑中見舞い', 0);

-- 暑中見舞いの本文.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (20, 19, 'C', '暑中見舞いの本文', ' ', 93);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (20, 93, 0, 'F', 'F008');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (20, 94, 93, 'C', '0', 27),
  (20, 95, 93, 'C', '1', null),
  (20, 96, 93, 'C', '0', 28);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (20, 97, 94, 'R', '涼しい風の便りが届く頃となりました。', 'S', '涼しい風の便りが届く頃となりました。'),
  (20, 98, 95, 'R', '厳しい暑さが続いております。', 'S', '厳しい暑さが続いております。'),
  (20, 99, 96, 'R', '海の青さがまぶしい季節となりました。', 'S', '海の青さがまぶしい季節となりました。');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (20, 27, 1, 'S', '北海道', 3),
  (20, 27, 2, 'S', '青森県', 3),
  (20, 27, 3, 'S', '岩手県', 3),
  (20, 27, 4, 'S', '秋田県', 3),
  (20, 28, 1, 'S', '沖縄県', 3);

-- 暑中見舞いの図柄.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (21, 19, 'C', '暑中見舞いの図柄', null, 100);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (21, 100, 0, 'F', 'F008');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (21, 101, 100, 'C', '0', 29),
  (21, 102, 100, 'C', '1', null),
  (21, 103, 100, 'C', '0', 30);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (21, 104, 101, 'R', 'ラベンダー', 'I', '図/夏_ラベンダー.png'),
  (21, 105, 102, 'R', '金魚', 'I', '図/夏_金魚.png'),
  (21, 106, 103, 'R', '珊瑚', 'I', '図/夏_珊瑚.png');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (21, 29, 1, 'S', '北海道', 3),
  (21, 30, 1, 'S', '沖縄県', 3);

-- ==============================
-- Folder 季節の挨拶/お祝い

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (22, 10, 'F', 'お祝い', 0);

-- 誕生日の挨拶: has multimedia values only.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (23, 22, 'C', '誕生日の挨拶', '差し込みメール用。音声も選べる。', 107);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (23, 107, 0, 'F', 'F019');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (23, 108, 107, 'C', '0', 31),
  (23, 109, 107, 'C', '1', null),
  (23, 110, 107, 'C', '0', 32);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_mmedia_filename) VALUES
  (23, 111, 108, 'R', 'やわらかな声', 'M', '音/誕生日_静か.mp3'),
  (23, 112, 109, 'R', '標準の声', 'M', '音/誕生日.mp3'),
  (23, 113, 110, 'R', 'にぎやかな声', 'M', '音/誕生日_元気.mp3');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (23, 31, 1, 'D', '1900/01/01', 1, '1955/12/31', 1),
  (23, 32, 1, 'D', '2000/01/01', 1, null, null);

-- 創業記念のお祝い: mixes values of four kinds.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (24, 22, 'C', '創業記念のお祝い', ' ', 114);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (24, 114, 0, 'F', 'F025');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (24, 115, 114, 'C', '0', 33),
  (24, 116, 114, 'C', '1', null),
  (24, 117, 114, 'C', '0', 34),
  (24, 118, 114, 'C', '0', 35);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (24, 119, 115, 'R', '花輪', 'S', '花輪をお贈りします。');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (24, 121, 117, 'R', '花束の写真', 'I', '図/花束.png');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_mmedia_filename) VALUES
  (24, 122, 118, 'R', '祝電の音声', 'M', '音/祝電.mp3');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_field_id) VALUES
  (24, 120, 116, 'R', '担当者名', 'F', 'F014');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (24, 33, 1, 'N', 300, 1, null, null),
  (24, 34, 1, 'N', 50, 1, 300, 2),
  (24, 35, 1, 'N', null, null, 50, 2);

-- ============================================================
-- Folder 請求と契約

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (25, 0, 'F', '請求と契約', 0);

-- ==============================
-- Folder 請求と契約/請求書

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (26, 25, 'F', '請求書', 0);

-- 請求書の前文.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (27, 26, 'C', '請求書の前文', ' ', 123);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (27, 123, 0, 'F', 'F024');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (27, 124, 123, 'C', '0', 36),
  (27, 125, 123, 'C', '1', null),
  (27, 126, 123, 'C', '0', 37),
  (27, 127, 123, 'C', '0', 38);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (27, 128, 124, 'R', 'このたびはご利用いただき、誠にありがとうございました。', 'S', 'このたびはご利用いただき、誠にありがとうございました。'),
  (27, 129, 125, 'R', '過入金の分は次回のご請求から差し引きます。', 'S', '過入金の分は次回のご請求から差し引きます。'),
  (27, 130, 126, 'R', '下記のとおりご請求申し上げます。', 'S', '下記のとおりご請求申し上げます。'),
  (27, 131, 127, 'R', '残高をご確認のうえ、お振り込みください。', 'S', '残高をご確認のうえ、お振り込みください。');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (27, 36, 1, 'N', 0, 1, 0, 1),
  (27, 37, 1, 'N', 0, 2, 500000, 2),
  (27, 38, 1, 'N', 500000, 1, null, null);

-- 支払期限の文.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (28, 26, 'C', '支払期限の文', '締め日は毎月末。', 132);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (28, 132, 0, 'F', 'F015'),
  (28, 135, 133, 'F', 'F023');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (28, 133, 132, 'C', '0', 39),
  (28, 134, 132, 'C', '1', null),
  (28, 136, 135, 'C', '0', 40),
  (28, 137, 135, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (28, 138, 136, 'R', '翌々月末', 'S', '翌々月末日までにお支払いください。'),
  (28, 139, 137, 'R', '翌月末', 'S', '翌月末日までにお支払いください。'),
  (28, 140, 134, 'R', '二週間', 'S', '到着後二週間以内にお支払いください。');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (28, 39, 1, 'S', '法人会員', 3);
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (28, 40, 1, 'N', 5000000, 1, null, null);

-- 値引の表示: compares with fractions and a negative number.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (29, 26, 'C', '値引の表示', ' ', 141);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (29, 141, 0, 'F', 'F026');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (29, 142, 141, 'C', '0', 41),
  (29, 143, 141, 'C', '1', null),
  (29, 144, 141, 'C', '0', 42),
  (29, 145, 141, 'C', '0', 43);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (29, 146, 142, 'R', '特別値引', 'S', '特別値引を適用しました。'),
  (29, 147, 144, 'R', '会員値引', 'S', '会員値引を適用しました。'),
  (29, 148, 145, 'R', '割増', 'S', 'お急ぎの分の割増を含みます。');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (29, 41, 1, 'N', 0.1, 1, null, null),
  (29, 42, 1, 'N', 0.05, 1, 0.1, 2),
  (29, 43, 1, 'N', -1, 1, 0, 2);

-- 請求書の送付先.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (30, 26, 'C', '請求書の送付先', null, 149);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (30, 149, 0, 'F', 'F012');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (30, 150, 149, 'C', '0', 44),
  (30, 151, 149, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_field_id) VALUES
  (30, 152, 150, 'R', 'FAX番号', 'F', 'F012'),
  (30, 153, 151, 'R', '住所', 'F', 'F009');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (30, 44, 1, 'S', '0', 2);

-- ==============================
-- Folder 請求と契約/契約書

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (31, 25, 'F', '契約書', 0);

-- 更新の案内: has two spans in one condition.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (32, 31, 'C', '更新の案内', ' ', 154);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (32, 154, 0, 'F', 'F022');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (32, 155, 154, 'C', '0', 45),
  (32, 156, 154, 'C', '1', null),
  (32, 157, 154, 'C', '0', 46);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_text_filename) VALUES
  (32, 158, 155, 'R', '早期更新', 'T', '文例/更新_早期.txt'),
  (32, 159, 156, 'R', '通常', 'T', '文例/更新_通常.txt'),
  (32, 160, 157, 'R', '満了', 'T', '文例/更新_満了.txt');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (32, 45, 1, 'D', '2025/01/01', 1, '2025/03/31', 1),
  (32, 45, 2, 'D', '2025/07/01', 1, '2025/09/30', 1),
  (32, 46, 1, 'D', null, null, '2024/12/31', 1);

-- 契約書の表紙: has an image without any test.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (33, 31, 'C', '契約書の表紙', null, 161);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (33, 161, 0, 'R', '表紙', 'I', '図/契約書_表紙.png');

-- 解約の受付: has no rule at all.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (34, 31, 'C', '解約の受付', null, 162);

-- ============================================================
-- Folder 営業所案内

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (35, 0, 'F', '営業所案内', 0);

-- 担当営業所.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (36, 35, 'C', '担当営業所', '都道府県で決める。', 162);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (36, 162, 0, 'F', 'F008'),
  (36, 169, 164, 'F', 'F029');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (36, 163, 162, 'C', '0', 47),
  (36, 164, 162, 'C', '1', null),
  (36, 165, 162, 'C', '0', 48),
  (36, 166, 162, 'C', '0', 49),
  (36, 167, 162, 'C', '0', 50),
  (36, 170, 169, 'C', '0', 51),
  (36, 171, 169, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (36, 168, 163, 'R', '東京営業所', 'S', '東京営業所'),
  (36, 173, 170, 'R', '国際部', 'S', '国際部'),
  (36, 174, 171, 'R', '本社お客様窓口', 'S', '本社お客様窓口'),
  (36, 175, 165, 'R', '大阪営業所', 'S', '大阪営業所'),
  (36, 176, 166, 'R', '名古屋営業所', 'S', '名古屋営業所'),
  (36, 177, 167, 'R', '福岡営業所', 'S', '福岡営業所');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (36, 47, 1, 'S', '東京都', 3),
  (36, 47, 2, 'S', '神奈川県', 3),
  (36, 47, 3, 'S', '埼玉県', 3),
  (36, 47, 4, 'S', '千葉県', 3),
  (36, 48, 1, 'S', '大阪府', 3),
  (36, 48, 2, 'S', '京都府', 3),
  (36, 48, 3, 'S', '兵庫県', 3),
  (36, 48, 4, 'S', '奈良県', 3),
  (36, 49, 1, 'S', '愛知県', 3),
  (36, 49, 2, 'S', '岐阜県', 3),
  (36, 49, 3, 'S', '三重県', 3),
  (36, 50, 1, 'S', '福岡県', 3),
  (36, 50, 2, 'S', '佐賀県', 3);
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (36, 51, 1, 'B', True);

-- 営業所の地図.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (37, 35, 'C', '営業所の地図', ' ', 178);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (37, 178, 0, 'F', 'F008');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (37, 179, 178, 'C', '0', 53),
  (37, 180, 178, 'C', '1', null),
  (37, 181, 178, 'C', '0', 54),
  (37, 182, 178, 'C', '0', 55);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (37, 183, 179, 'R', '東京', 'I', '図/地図_東京.png'),
  (37, 184, 180, 'R', '本社', 'I', '図/地図_本社.png'),
  (37, 185, 181, 'R', '大阪', 'I', '図/地図_大阪.png'),
  (37, 186, 182, 'R', '名古屋', 'I', '図/地図_名古屋.png');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (37, 53, 1, 'S', '東京都', 3),
  (37, 54, 1, 'S', '大阪府', 3),
  (37, 55, 1, 'S', '愛知県', 3);

-- 営業所の電話番号.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (38, 35, 'C', '営業所の電話番号', ' ', 187);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (38, 187, 0, 'F', 'F007');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (38, 188, 187, 'C', '0', 56),
  (38, 189, 187, 'C', '1', null),
  (38, 190, 187, 'C', '0', 57);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (38, 191, 188, 'R', '03-0000-1001', 'S', '03-0000-1001'),
  (38, 192, 189, 'R', '0120-000-100', 'S', '0120-000-100'),
  (38, 193, 190, 'R', '06-0000-1002', 'S', '06-0000-1002');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (38, 56, 1, 'S', '1', 2),
  (38, 56, 2, 'S', '2', 2),
  (38, 57, 1, 'S', '5', 2),
  (38, 57, 2, 'S', '6', 2);

-- ==============================
-- Folder 営業所案内/催し

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (39, 35, 'F', '催し', 0);

-- 展示会の招待状.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (40, 39, 'C', '展示会の招待状', ' ', 194);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (40, 194, 0, 'F', 'F015'),
  (40, 197, 195, 'F', 'F008'),
  (40, 200, 198, 'F', 'F027');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (40, 195, 194, 'C', '0', 58),
  (40, 196, 194, 'C', '1', null),
  (40, 198, 197, 'C', '0', 59),
  (40, 199, 197, 'C', '1', null),
  (40, 201, 200, 'C', '0', 60),
  (40, 202, 200, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_text_filename) VALUES
  (40, 204, 201, 'R', '東京会場', 'T', '文例/招待_東京.txt'),
  (40, 205, 199, 'R', '全国', 'T', '文例/招待_全国.txt');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (40, 58, 1, 'S', '法人会員', 3),
  (40, 58, 2, 'S', '特別会員', 3),
  (40, 59, 1, 'S', '東京都', 3);
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (40, 60, 1, 'B', True);

-- 展示会の案内動画.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (41, 39, 'C', '展示会の案内動画', null, 206);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (41, 206, 0, 'F', 'F027');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (41, 207, 206, 'C', '0', 62),
  (41, 208, 206, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_mmedia_filename) VALUES
  (41, 210, 207, 'R', '紹介動画', 'M', '動画/展示会.mp4'),
  (41, 211, 208, 'R', '音声だけの案内', 'M', '音/展示会.mp3');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (41, 62, 1, 'B', True);

-- 工場見学の案内.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (42, 39, 'C', '工場見学の案内', null, 212);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (42, 212, 0, 'F', 'F025');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (42, 213, 212, 'C', '0', 64),
  (42, 214, 212, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (42, 215, 213, 'R', '団体', 'S', '団体でのお申し込みを承ります。'),
  (42, 216, 214, 'R', '個人', 'S', 'お一人様からお申し込みいただけます。');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (42, 64, 1, 'N', 10, 1, 40, 1);

-- ============================================================
-- Folder ダイレクトメール

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (43, 0, 'F', 'ダイレクトメール', 0);

-- 件名.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (44, 43, 'C', '件名', ' ', 217);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (44, 217, 0, 'F', 'F027'),
  (44, 220, 218, 'F', 'F021');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (44, 218, 217, 'C', '0', 65),
  (44, 219, 217, 'C', '1', null),
  (44, 221, 220, 'C', '0', 66),
  (44, 222, 220, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (44, 223, 221, 'R', '新作のご案内', 'S', '新作のご案内'),
  (44, 224, 222, 'R', 'お久しぶりです', 'S', 'お久しぶりです'),
  (44, 225, 219, 'R', '重要なお知らせ', 'S', '重要なお知らせ');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (44, 66, 1, 'D', '2024/10/01', 1, null, null);
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (44, 65, 1, 'B', True);

-- 署名.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (45, 43, 'C', '署名', ' ', 226);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (45, 226, 0, 'F', 'F014');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (45, 227, 226, 'C', '0', 67),
  (45, 228, 226, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (45, 230, 228, 'R', 'お客様窓口', 'S', 'お客様窓口');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_field_id) VALUES
  (45, 229, 227, 'R', '担当者名', 'F', 'F014');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (45, 67, 1, 'S', '　', 1);
-- This value was a field before: a change blanks what the value does not use.
UPDATE replace_m SET r_field_id = ' ', r_text_filename = ' ', r_image_filename = ' ', r_mmedia_filename = ' '
  WHERE replace_no = 45 AND replace_m_no = 230;

-- 配信停止の案内.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (46, 43, 'C', '配信停止の案内', ' ', 231);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (46, 231, 0, 'F', 'F027');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (46, 232, 231, 'C', '0', 68),
  (46, 233, 231, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (46, 234, 232, 'R', '停止の手順', 'S', 'このメールに「停止」とご返信ください。');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (46, 68, 1, 'B', True);

-- QRコード.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (47, 43, 'C', 'QRコード', null, 235);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type,
   r_image_filename) VALUES
  (47, 235, 0, 'R', '会員証', 'I', '図/会員証.png');

-- お取引が三年以上続き、年間のご購入額が百…: has a title of the full 100 characters.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (48, 43, 'C', 'お取引が三年以上続き、年間のご購入額が百万円を超え、しかも直近一年のうちに一度以上ご来店くださったお客様のうち、担当営業所が関東または東海にあり、ダイレクトメールの受け取りを承諾なさった方へのご案内状', '題名の長さは上限の百文字。', 236);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (48, 236, 0, 'F', 'F023'),
  (48, 239, 237, 'F', 'F021'),
  (48, 242, 240, 'F', 'F027');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (48, 237, 236, 'C', '0', 69),
  (48, 238, 236, 'C', '1', null),
  (48, 240, 239, 'C', '0', 70),
  (48, 241, 239, 'C', '1', null),
  (48, 243, 242, 'C', '0', 71),
  (48, 244, 242, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (48, 246, 243, 'R', 'ご招待', 'S', 'お得意様だけの会にご招待いたします。'),
  (48, 247, 244, 'R', 'ご案内', 'S', '会のご案内を同封いたします。');
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, n_f_val, n_f_method, n_t_val, n_t_method) VALUES
  (48, 69, 1, 'N', 1000000, 1, null, null);
INSERT INTO replace_cond
  (replace_no, replace_cond_no, sno, use_type, d_f_val, d_f_method, d_t_val, d_t_method) VALUES
  (48, 70, 1, 'D', '2024/04/01', 1, '2025/03/31', 1);
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, b_val) VALUES
  (48, 71, 1, 'B', True);

-- ============================================================
-- Folder 書きかけ

INSERT INTO replace (replace_no, p_replace_no, kind, title, replace_m_no) VALUES
  (49, 0, 'F', '書きかけ', 0);

-- A definition with a blank title: was left right after it was made.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (50, 49, 'C', ' ', null, 248);

-- 顔写真の差し込み: tests a field that no dialog knows.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (51, 49, 'C', '顔写真の差し込み', null, 248);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (51, 248, 0, 'F', 'F030');

-- A definition without a title: came from another program, which gave it no title.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (52, 49, 'C', null, '他のプログラムが書き込んだ行。', 249);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (52, 249, 0, 'F', 'F018');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (52, 250, 249, 'C', '0', 73),
  (52, 251, 249, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (52, 252, 250, 'R', '要確認', 'S', '要確認'),
  (52, 253, 251, 'R', '確認済み', 'S', '確認済み');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (52, 73, 1, 'S', '要確認', 1);

-- 差出人: is used everywhere and lies in no folder.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (53, 0, 'C', '差出人', '全ての文書に使う。', 254);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (53, 254, 0, 'R', '会社の住所', 'S', '東京都千代田区一番町1-1
株式会社青葉商会');

-- 自宅か勤務先か.
INSERT INTO replace (replace_no, p_replace_no, kind, title, comment, replace_m_no) VALUES
  (54, 0, 'C', '自宅か勤務先か', ' ', 255);
INSERT INTO replace_m (replace_no, replace_m_no, p_replace_m_no, use_type, field_id) VALUES
  (54, 255, 0, 'F', 'F010'),
  (54, 259, 257, 'F', 'F011'),
  (54, 263, 261, 'F', 'F013');
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_cond_type, replace_cond_no) VALUES
  (54, 256, 255, 'C', '0', 74),
  (54, 257, 255, 'C', '1', null),
  (54, 260, 259, 'C', '0', 75),
  (54, 261, 259, 'C', '1', null),
  (54, 264, 263, 'C', '0', 76),
  (54, 265, 263, 'C', '1', null);
INSERT INTO replace_m
  (replace_no, replace_m_no, p_replace_m_no, use_type, replace_title, replace_type, r_text) VALUES
  (54, 258, 256, 'R', '勤務先', 'S', '勤務先'),
  (54, 262, 260, 'R', '自宅', 'S', '自宅'),
  (54, 266, 264, 'R', '勤務先', 'S', '勤務先'),
  (54, 267, 265, 'R', '不明', 'S', '不明');
INSERT INTO replace_cond (replace_no, replace_cond_no, sno, use_type, s_val, s_method) VALUES
  (54, 74, 1, 'S', 'ビル', 1),
  (54, 74, 2, 'S', 'タワー', 1),
  (54, 74, 3, 'S', 'センター', 1),
  (54, 75, 1, 'S', '090', 2),
  (54, 75, 2, 'S', '080', 2),
  (54, 75, 3, 'S', '070', 2),
  (54, 76, 1, 'S', '.co.jp', 1);

-- ============================================================
-- The last numbers used

UPDATE seqno SET replace = 54, replace_m = 267, replace_cond = 76;
