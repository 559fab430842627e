#pragma once

#include <libpq-fe.h>

#include <string>

#include "store/result_cells.h"
#include "store/statement_shape.h"

namespace ADODB {

/// The type by which PostgreSQL knows a literal that stands in a statement; 0 for a text, whose
/// type its surroundings decide.
[[nodiscard]] Oid type_of(const literal& value);

/// The literal as the text form of a parameter.
[[nodiscard]] std::string text_of(const literal& value);

/// Adds one cell of an answer. An exact number that is no whole one of 64 bits is the text of its
/// digits, so that none is lost.
void add_cell(result_cells& cells, const PGresult* answer, int row, int column);

}  // namespace ADODB
