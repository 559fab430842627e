#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

namespace platform {

/// The toolkit's side of a control. The widget belongs to the window that it stands in.
struct toolkit_peer {
  explicit toolkit_peer(QWidget* made) : widget(made) {}
  toolkit_peer(const toolkit_peer&) = delete;
  toolkit_peer& operator=(const toolkit_peer&) = delete;
  virtual ~toolkit_peer() = default;

  QWidget* widget;
};

template <class Widget>
Widget& as(const toolkit_peer& peer) {
  return *static_cast<Widget*>(peer.widget);
}

inline QString to_toolkit(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string from_toolkit(const QString& text) {
  return text.toStdString();
}

/// Windows are measured in twips, 1440 to the inch; the toolkit scales its own pixels, 96 to it.
constexpr int pixels(int twips) {
  return twips / 15;
}

}  // namespace platform
