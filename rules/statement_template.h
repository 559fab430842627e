#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ta_vorlumine {

/// Fills the tokens %01, %02, ... of a statement in one pass, so that a text with "%10" in it is
/// never taken for a token. `values` are ready for their places: doubled where these are quoted.
/// In quotes null_value takes the quotes away.
[[nodiscard]] std::string fill_template(std::string_view statement,
                                        const std::vector<std::string>& values);

/// Stands for null in any place, quoted or not. It can't be the doubled text of a real value.
inline const std::string null_value = "'";

}  // namespace ta_vorlumine
