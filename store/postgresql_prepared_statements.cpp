#include "store/postgresql_prepared_statements.h"

#include "store/fingerprint.h"

namespace ADODB {
namespace {

bool are_columns_of(const PGresult* answer, const column_names& names) {
  const int count = PQnfields(answer);
  if (!names || static_cast<int>(names->size()) != count) return false;
  for (int column = 0; column < count; ++column)
    if (names->at(static_cast<std::size_t>(column)) != PQfname(answer, column)) return false;
  return true;
}

}  // namespace

std::vector<bound_value> bound_values(const statement& statement) {
  std::vector<bound_value> values;
  values.reserve(statement.parameters.size());
  for (const parameter& value : statement.parameters) values.push_back(bound(value));
  return values;
}

std::string postgresql_prepared_statements::name_of(const words& text,
                                                    const std::vector<bound_value>& values) const {
  fingerprint content = text.fingerprint();
  for (const bound_value& value : values) content.add(std::uint64_t{value.type});
  content.add(generation_);
  return "vorlumine_" + content.text();
}

column_names postgresql_prepared_statements::columns_of(const std::string& name,
                                                        const PGresult* answer) {
  column_names& known = columns_[name];
  if (!are_columns_of(answer, known)) known = ADODB::columns_of(answer);
  return known;
}

}  // namespace ADODB
