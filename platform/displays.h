#pragma once

#include <QByteArray>

namespace platform {

/// What an application object of ours has to ask the toolkit for, so that its windows come up;
/// empty if the toolkit's own choice will do. Raises std::runtime_error where no window can be
/// shown: the toolkit would end the host's process there.
[[nodiscard]] QByteArray usable_platform();

}  // namespace platform
