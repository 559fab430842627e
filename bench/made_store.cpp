#include "made_store.h"

#include <cstdlib>
#include <stdexcept>

#include "host/store_maker.h"

namespace bench {
namespace {

class batch {
 public:
  explicit batch(const made_store& store) : database_(store.bare()) {
    send(database_.get(), "BEGIN");
  }
  ~batch() { send(database_.get(), "COMMIT"); }
  void operator()(const std::string& statement) { send(database_.get(), statement); }

 private:
  database database_;
};

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

}  // namespace

made_store::made_store() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "vorlumine_bench_XXXXXX").string();
  folder_ = ::mkdtemp(pattern.data());
  rule_store::make_store((folder_ / "store.db").string(), rule_store::content::empty);
}

made_store::~made_store() {
  std::filesystem::remove_all(folder_);
}

std::string made_store::connect_string() const {
  return "Driver=SQLite;Database=" + (folder_ / "store.db").string();
}

database made_store::bare() const {
  sqlite3* handle = nullptr;
  sqlite3_open((folder_ / "store.db").c_str(), &handle);
  sqlite3_exec(handle, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
  return {handle, &sqlite3_close};
}

void made_store::fill_titles(int definitions) {
  batch run(*this);
  constexpr int folders = 200;
  for (int key = 1; key <= folders; ++key) {
    run("insert into replace values(" + text(key) + "," + text(key % 10 == 1 ? 0 : key - 1) +
        ",'F','フォルダ" + text(key) + "',null,0)");
  }
  for (int i = 0; i < definitions; ++i) {
    const int key = folders + 1 + i;
    run("insert into replace values(" + text(key) + "," + text(1 + i % folders) + ",'C','置換定義" +
        text(key) + "','備考'," + text(1 + i % 30000) + ")");
    for (int value = 0; i % 10 == 0 && value <= i / 10 % 3; ++value) {
      run(value_row(key, 1 + value, 0, value == 2 ? "I" : "S"));
    }
  }
  run("update seqno set replace=" + text(folders + definitions) + ",replace_m=30000");
}

// Each level: a field, its conditions, an otherwise row; the first condition leads a level down,
// the others end in values. What 30 levels leave over of the rows hangs below the last field.
void made_store::fill_rules(int rows) {
  batch run(*this);
  run("insert into field values('F1','姓','T')");
  run("insert into replace values(1,0,'C','大きな定義','備考',1)");
  int key = 0;
  int lines = 0;
  int parent = 0;
  constexpr int levels = 30;
  const int conditions = (rows - levels * 2) / (levels * 2);
  for (int level = 0; level < levels; ++level) {
    const int field = ++key;
    run("insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(1," +
        text(field) + "," + text(parent) + ",'F','F1')");
    for (int i = 0; i <= conditions; ++i) {
      const bool otherwise = i == conditions;
      const int condition = ++key;
      if (i == 0) parent = condition;
      run(condition_row(condition, field, otherwise ? "1" : "0", otherwise ? 0 : ++lines));
      for (int sno = 1; !otherwise && sno <= 2; ++sno) {
        run("insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
            "values(1," +
            text(lines) + "," + text(sno) + ",'S',1,'文字列" + text(sno) + "')");
      }
      if (i != 0 || level == levels - 1) run(value_row(1, ++key, condition, "S"));
    }
  }
  run("update seqno set replace=1,replace_m=" + text(key) + ",replace_cond=" + text(lines));
}

void made_store::add_folder(int folder, int definitions) {
  batch run(*this);
  run("insert into replace values(" + text(folder) + ",0,'F','消すフォルダ',null,0)");
  for (int i = 1; i <= definitions; ++i) {
    run("insert into replace values(" + text(folder + i) + "," + text(folder) + ",'C','消す定義" +
        text(i) + "',null,1)");
    run(value_row(folder + i, 1, 0, "S"));
  }
}

void send(sqlite3* database, const std::string& statement,
          const std::function<void(sqlite3_stmt*)>& row) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
  int state = 0;
  while ((state = sqlite3_step(prepared)) == SQLITE_ROW) {
    if (row) row(prepared);
  }
  sqlite3_finalize(prepared);
  if (state != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace bench
