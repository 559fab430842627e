#include "platform/arrangement.h"

#include <QBoxLayout>
#include <QGridLayout>

#include "platform/control.h"
#include "platform/toolkit_peer.h"

namespace platform {

QLayout* arrangement::of(const box& body) {
  return body.what == box::kind::fields ? grid(body) : line(body);
}

QLayout* arrangement::line(const box& body) {
  const bool is_row = body.what == box::kind::row;
  auto* layout = new QBoxLayout(is_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  for (const box& part : body.parts) {
    if (part.what == box::kind::stretch) {
      layout->addStretch();
    } else if (part.what == box::kind::control) {
      layout->addWidget(part.one->peer().widget);
    } else {
      layout->addLayout(of(part));
    }
  }
  return layout;
}

QLayout* arrangement::grid(const box& body) {
  auto* layout = new QGridLayout;
  layout->setColumnStretch(1, 1);
  int row = 0;
  for (const box& fields : body.parts) {
    int column = 0;
    for (const box& part : fields.parts) {
      if (part.what == box::kind::control) {
        layout->addWidget(part.one->peer().widget, row, column);
      } else {
        layout->addLayout(of(part), row, column);
      }
      ++column;
    }
    ++row;
  }
  return layout;
}

}  // namespace platform
