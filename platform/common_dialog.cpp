#include "platform/common_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QListView>
#include <QScreen>
#include <QTreeView>

#include "platform/busy_pointer.h"
#include "platform/fonts.h"
#include "platform/modal_loop.h"
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

/// Dates as the windows write them; the toolkit's own are those of the process's locale.
class dated_files : public QIdentityProxyModel {
 public:
  using QIdentityProxyModel::QIdentityProxyModel;

  [[nodiscard]] QVariant data(const QModelIndex& file, int role) const override {
    constexpr int date = 3;  // the column
    if (role != Qt::DisplayRole || file.column() != date)
      return QIdentityProxyModel::data(file, role);
    const auto& files = static_cast<const QFileSystemModel&>(*sourceModel());
    return files.lastModified(mapToSource(file)).toString("yyyy/MM/dd HH:mm");
  }
};

/// Sizes, kinds, dates and places are shown whole; the names get the rest.
void lay_out(QFileDialog& dialog) {
  const QSize wanted(scaled_pixels(10500), scaled_pixels(6500));
  dialog.resize(wanted.boundedTo(dialog.screen()->availableSize()));
  auto& places = *dialog.findChild<QListView*>("sidebar");
  places.setMinimumWidth(places.sizeHintForColumn(0) + 2 * places.frameWidth());
  QHeaderView& columns = *dialog.findChild<QTreeView*>("treeView")->header();
  columns.setResizeContentsPrecision(0);  // of files out of view
  columns.setStretchLastSection(false);
  columns.setSectionResizeMode(QHeaderView::ResizeToContents);
  columns.setSectionResizeMode(0, QHeaderView::Stretch);
}

// Whoever chooses one file often chooses the next one beside it. Lasts as long as the process.
thread_local QString last_folder;

}  // namespace

std::string CommonDialog::ShowOpen() const {
  QFileDialog dialog(running_dialog(), to_toolkit(title_));
  dialog.setObjectName("openDlg");
  dialog.setFont(window_font());
  // The toolkit's own dialog: it speaks the windows' language whatever the desktop's is.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setProxyModel(new dated_files(&dialog));
  lay_out(dialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(name_filters(Filter));
  if (QFileInfo(last_folder).isDir()) dialog.setDirectory(last_folder);
  const modal_run run;
  if (run_modally(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  last_folder = dialog.directory().absolutePath();
  return from_toolkit(dialog.selectedFiles().constFirst());
}

}  // namespace platform
