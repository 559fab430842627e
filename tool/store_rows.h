#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "store/connection.h"
#include "store/value.h"
#include "tool/progress.h"

namespace rule_store {

using key = std::int64_t;
inline constexpr key highest_key = 32767;  ///< 1 is the lowest; 0 is the root of a tree
inline constexpr key no_key = std::numeric_limits<key>::min();  ///< a null in a column of keys
inline constexpr key not_a_key = no_key + 1;  ///< something there that is no whole number

/// A row of replace: a folder or the head of a definition.
struct title_row {
  key no;
  key parent;
  std::string kind;
  ADODB::Value title;
  std::string comment;
  key top_rule;  ///< the number that is reserved for the top field row
};

/// A row of replace_m.
struct rule_row {
  key definition;
  key parent;
  std::string cond_type;
  key no;
  std::string use_type;
  std::string field_id;
  key lines;  ///< the condition's number in replace_cond; no_key for 0, too, which is no number
  std::string title;
  std::string replace_type;
  std::string content;  ///< what the column of its replace_type holds; empty for another type

  [[nodiscard]] bool is_field() const { return use_type == "F"; }
  [[nodiscard]] bool is_otherwise() const { return use_type == "C" && cond_type == "1"; }
  [[nodiscard]] bool is_condition() const { return use_type == "C" && cond_type != "1"; }
  [[nodiscard]] bool is_value() const { return use_type == "R"; }
};

/// One end of a comparison: how it counts, and the value. Each is null or the empty text where
/// there is none.
struct bound {
  ADODB::Value value;
  ADODB::Value method;

  [[nodiscard]] bool has_value() const { return !value.text().empty(); }
  [[nodiscard]] bool has_method() const { return !method.text().empty(); }
};

/// A row of replace_cond.
struct line_row {
  key definition;
  key condition;
  key sno;
  std::string use_type;
  bound text;
  bound date_from, date_to;
  bound number_from, number_to;
  ADODB::Value answer;  ///< null, true or false; of a line out of shape the text that stands there

  /// The line without what a copied definition has in the columns that its source left empty: a
  /// number 0 and, on all but date lines, the day 1900/01/01, both without a method.
  [[nodiscard]] line_row without_fillers() const;
};

struct field_row {
  std::string name;
  std::string attr;
};

/// A row of seqno.
struct counter_row {
  key replace, replace_m, replace_cond;
};

/// All that a store holds, in memory. A null text is an empty one.
struct store_rows {
  std::vector<title_row> titles;  ///< by number
  std::vector<rule_row> rules;    ///< by definition and parent, the otherwise row last
  std::vector<line_row> lines;    ///< by definition, condition and sno
  std::map<std::string, field_row> fields;
  std::vector<counter_row> counters;

  /// Null if there is none.
  [[nodiscard]] const title_row* title(key no) const;
  [[nodiscard]] std::span<const rule_row> rules_of(key definition) const;
  [[nodiscard]] std::span<const rule_row> children(key definition, key parent) const;
  [[nodiscard]] std::span<const line_row> lines_of(key definition, key condition) const;
};

/// Reads the store that the connection string names, and writes nothing. Every failure is an
/// ADODB::Error.
[[nodiscard]] store_rows read_store(const std::string& connect_string,
                                    const progress& tell = untold);

/// The same through an open connection, in whose transaction the tables fit together while other
/// programs write.
[[nodiscard]] store_rows read_tables(ADODB::Connection& connection, const progress& tell = untold);

}  // namespace rule_store
