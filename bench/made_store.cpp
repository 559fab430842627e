#include "made_store.h"

#include "temporary_folder.h"
#include "tool/store_maker.h"

namespace bench {
namespace {

std::string text(std::int64_t number) {
  return std::to_string(number);
}

std::string value_row(int definition, int rule, int parent, const std::string& type) {
  return "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
         "replace_type,r_text) values(" +
         text(definition) + "," + text(rule) + "," + text(parent) + ",'R','値" + text(rule) +
         "','" + type + "','テキスト')";
}

std::string condition_row(int rule, int parent, const std::string& type, int lines) {
  return "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,"
         "replace_cond_type,replace_cond_no) values(1," +
         text(rule) + "," + text(parent) + ",'C','" + type + "'," + (lines ? text(lines) : "null") +
         ")";
}

/// Statements that run together when the batch ends.
class batch {
 public:
  explicit batch(bare_connection& connection) : connection_(connection) {}
  batch(const batch&) = delete;
  batch& operator=(const batch&) = delete;
  void operator()(const std::string& statement) { (script_ += statement) += ";\n"; }
  void run() { connection_.run_all(script_); }

 private:
  bare_connection& connection_;
  std::string script_;
};

}  // namespace

made_store::made_store(engine behind) {
  if (behind == engine::postgresql) {
    database_.emplace();
    connect_string_ = database_->connect_string();
    bare_ = open_bare_postgresql(connect_string_);
  } else {
    folder_ = make_temporary_folder();
    const std::string file = (folder_ / "store.db").string();
    rule_store::make_store(file, rule_store::content::empty);
    connect_string_ = "Driver=SQLite;Database=" + file;
    bare_ = open_bare_sqlite(file);
  }
}

made_store::~made_store() {
  bare_.reset();
  if (!folder_.empty()) std::filesystem::remove_all(folder_);
}

void made_store::fill_titles(int definitions) {
  batch add(*bare_);
  constexpr int folders = 200;
  for (int key = 1; key <= folders; ++key) {
    add("insert into replace values(" + text(key) + "," + text(key % 10 == 1 ? 0 : key - 1) +
        ",'F','フォルダ" + text(key) + "',null,0)");
  }
  for (int i = 0; i < definitions; ++i) {
    const int key = folders + 1 + i;
    add("insert into replace values(" + text(key) + "," + text(1 + i % folders) + ",'C','置換定義" +
        text(key) + "','備考'," + text(1 + i % 30000) + ")");
    for (int value = 0; i % 10 == 0 && value <= i / 10 % 3; ++value) {
      add(value_row(key, 1 + value, 0, value == 2 ? "I" : "S"));
    }
  }
  add("update seqno set replace=" + text(folders + definitions) + ",replace_m=30000");
  add.run();
}

// Each level: a field, its conditions, an otherwise row; the first condition leads a level down,
// the others end in values. What 30 levels leave over of the rows hangs below the last field.
void made_store::fill_rules(int rows) {
  batch add(*bare_);
  add("insert into field values('F1','姓','T')");
  add("insert into replace values(1,0,'C','大きな定義','備考',1)");
  int key = 0;
  int lines = 0;
  int parent = 0;
  constexpr int levels = 30;
  const int conditions = (rows - levels * 2) / (levels * 2);
  for (int level = 0; level < levels; ++level) {
    const int field = ++key;
    add("insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(1," +
        text(field) + "," + text(parent) + ",'F','F1')");
    for (int i = 0; i <= conditions; ++i) {
      const bool otherwise = i == conditions;
      const int condition = ++key;
      if (i == 0) parent = condition;
      add(condition_row(condition, field, otherwise ? "1" : "0", otherwise ? 0 : ++lines));
      for (int sno = 1; !otherwise && sno <= 2; ++sno) {
        add("insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
            "values(1," +
            text(lines) + "," + text(sno) + ",'S',1,'文字列" + text(sno) + "')");
      }
      if (i != 0 || level == levels - 1) add(value_row(1, ++key, condition, "S"));
    }
  }
  add("update seqno set replace=1,replace_m=" + text(key) + ",replace_cond=" + text(lines));
  add.run();
}

void made_store::fill_condition(int lines) {
  batch add(*bare_);
  add("insert into field values('F1','姓','T')");
  add("insert into replace values(1,0,'C','長い条件',null,1)");
  add("insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
      "values(1,1,0,'F','F1')");
  add(condition_row(2, 1, "0", 1));
  add(condition_row(3, 1, "1", 0));
  for (int sno = 1; sno <= lines; ++sno) add(condition_line(sno));
  add("update seqno set replace=1,replace_m=3,replace_cond=1");
  add.run();
}

std::string made_store::condition_line(int sno) {
  return "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) "
         "values(1,1,'" +
         text(sno) + "','S','比較する値" + text(sno) + "','1')";
}

void made_store::add_folder(int folder, int definitions) {
  batch add(*bare_);
  add("insert into replace values(" + text(folder) + ",0,'F','消すフォルダ',null,0)");
  for (int i = 1; i <= definitions; ++i) {
    add("insert into replace values(" + text(folder + i) + "," + text(folder) + ",'C','消す定義" +
        text(i) + "',null,1)");
    add(value_row(folder + i, 1, 0, "S"));
  }
  add.run();
}

}  // namespace bench
