#include "platform/common_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "platform/busy_pointer.h"
#include "platform/fonts.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

// The toolkit's filters name their patterns in brackets at the end, in a part that isn't shown. It
// takes "*.*" as it stands, and so for files with a dot in their name only.
QStringList name_filters(const std::string& filter) {
  const QStringList parts = to_toolkit(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString patterns = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
    filters += parts[i] + " (" + QString(patterns).replace(';', ' ') + ")";
  }
  return filters;
}

// Whoever chooses one file often chooses the next one beside it. Lasts as long as the process.
thread_local QString last_folder;

}  // namespace

std::string CommonDialog::ShowOpen() const {
  QFileDialog dialog(QApplication::activeModalWidget(), to_toolkit(title_));
  dialog.setObjectName("openDlg");
  dialog.setFont(window_font());
  // The toolkit's own dialog: it speaks the windows' language whatever the desktop's is.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(name_filters(Filter));
  if (QFileInfo(last_folder).isDir()) dialog.setDirectory(last_folder);
  const modal_run run;
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  last_folder = dialog.directory().absolutePath();
  return from_toolkit(dialog.selectedFiles().constFirst());
}

}  // namespace platform
