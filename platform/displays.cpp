#include "platform/displays.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <stdexcept>

namespace platform {
namespace {

QStringList plugin_folders() {
  QStringList folders = QCoreApplication::libraryPaths();
  for (QString& folder : folders) folder += "/platforms";
  const QString given = qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH");
  return given.split(QDir::listSeparator(), Qt::SkipEmptyParts) + folders;
}

// A plugin that lacks a library of its own is found, and yet of no use. It is tried beside the
// toolkit, whose own loader, used before there is an application object, would destroy the plugin
// too late when the process ends.
bool has_plugin(const QString& name) {
  for (const QString& folder : plugin_folders()) {
    for (const QFileInfo& file :
         QDir(folder).entryInfoList({"libq" + name + "*.so"}, QDir::Files)) {
      const QByteArray path = QFile::encodeName(file.filePath());
      void* const plugin = ::dlopen(path.constData(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
      if (plugin) return ::dlclose(plugin) == 0;
    }
  }
  return false;
}

bool x_server_answers() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return answers;
}

bool takes_connections(const QByteArray& socket_file) {
  sockaddr_un address{AF_UNIX, {}};
  if (socket_file.size() >= static_cast<qsizetype>(sizeof address.sun_path)) return false;
  std::ranges::copy(socket_file, address.sun_path);
  const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const bool taken =
      ::connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(connection);
  return taken;
}

/// Whether there is a Wayland compositor. One that has started the host hands over a connection.
bool compositor_answers() {
  if (qEnvironmentVariableIsSet("WAYLAND_SOCKET"))
    return ::fcntl(qEnvironmentVariableIntValue("WAYLAND_SOCKET"), F_GETFD) != -1;
  QByteArray name = qgetenv("WAYLAND_DISPLAY");
  if (name.isEmpty()) name = "wayland-0";
  return takes_connections(name.startsWith('/') ? name : qgetenv("XDG_RUNTIME_DIR") + '/' + name);
}

// What else there is draws on the machine's screen itself, if it may and can, and tells that it
// can't by ending the process: that can't be tried.
bool can_show_windows(const QString& name) {
  if (name.startsWith("wayland")) return compositor_answers() && has_plugin(name);
  if (name.endsWith("xcb")) return x_server_answers() && has_plugin(name);
  return (name == "offscreen" || name == "minimal" || name == "vnc") && has_plugin(name);
}

QByteArray first_usable(const QByteArray& asked_for) {
  for (const QByteArray& choice : asked_for.split(';')) {
    const QString name = QString::fromUtf8(choice.split(':').constFirst());
    if (can_show_windows(name.toLower())) return choice;
  }
  throw std::runtime_error("no display: QT_QPA_PLATFORM is \"" + asked_for.toStdString() +
                           "\", and windows cannot be shown there");
}

}  // namespace

QByteArray usable_platform() {
  const QByteArray asked_for = qgetenv("QT_QPA_PLATFORM");
  if (!asked_for.isEmpty()) return first_usable(asked_for);
  const bool wayland = can_show_windows("wayland");
  const bool x = can_show_windows("xcb");
  if (wayland && x) return {};
  if (!wayland && !x) throw std::runtime_error("no display: windows cannot be shown here");
  return wayland ? "wayland" : "xcb";
}

}  // namespace platform
