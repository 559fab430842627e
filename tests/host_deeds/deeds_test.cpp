// What a host may do, and what it gets. Each test is a host of its own: it runs in a process for it
// alone.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QProxyStyle>
#include <QTimer>
#include <QToolButton>
#include <clocale>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "scripted_host.h"
#include "ta_vorlumine/replace_class.h"
#include "ta_vorlumine/ta_vorlumine.h"

using namespace host;

namespace {

constexpr int windows = 4;  // one over the other, at most

class Host : public testing::Test {
 protected:
  Host() { ::alarm(60); }

  /// The application object of a host, made when it is first named.
  QApplication& application() {
    if (!application_) application_.emplace(count_, arguments_);
    return *application_;
  }
  void end_application() { application_.reset(); }

  /// Runs the host's loop, with a call in it; gives the loop's result.
  int run_with(steps script) {
    application();
    play(std::move(script));
    soon([&] { returned_ = show(); });
    return QApplication::exec();
  }

  std::string returned_ = "not at all";

 private:
  int count_ = 1;
  char name_[5] = "host";
  char* arguments_[2] = {name_, nullptr};
  std::optional<QApplication> application_;
};

TEST_F(Host, WithoutADisplayGetsAFailure) {
  const std::string socket = std::filesystem::temp_directory_path() / "no_compositor";
  std::ofstream(socket).close();
  qputenv("DISPLAY", ":4321");
  qunsetenv("WAYLAND_DISPLAY");
  const auto gets_a_failure = [](const char* platform) {
    qputenv("QT_QPA_PLATFORM", platform);
    EXPECT_TRUE(show().starts_with("no display: ")) << platform;
    EXPECT_EQ(qApp, nullptr);
  };
  for (const char* platform :
       {"", "xcb", "xcb:arg", "wayland", "wayland-egl", "linuxfb", "linuxfb:fb=/dev/zero",
        "eglfs;nonsense", "minimalegl", "vkkhrdisplay", "nonsense", ";"})
    gets_a_failure(platform);
  qputenv("WAYLAND_DISPLAY", "wayland-7");
  gets_a_failure("");
  qputenv("WAYLAND_DISPLAY", socket.c_str());
  for (const char* platform : {"", "wayland;xcb"}) gets_a_failure(platform);
  qputenv("QT_QPA_PLATFORM", "nonsense;offscreen");
  EXPECT_TRUE(shows_again());
  if (::geteuid() != 0) return;
  ASSERT_EQ(::seteuid(65534), 0);
  EXPECT_TRUE(show().ends_with("another user's rights"));
  EXPECT_EQ(::seteuid(0), 0);
}

TEST_F(Host, KeepsItsLocaleAndItsApplicationObjects) {
  qputenv("LC_ALL", "C.UTF-8");
  std::setlocale(LC_ALL, "C");
  const auto is_kept = [] { return std::string(std::setlocale(LC_ALL, nullptr)) == "C"; };
  bool was_kept = false;
  play({[&] {
    was_kept = is_kept();
    std::setlocale(LC_CTYPE, "");  // as the toolkit does for the first key
    press("close");
  }});
  EXPECT_EQ(show(), "");
  EXPECT_TRUE(was_kept);
  EXPECT_TRUE(is_kept());
  EXPECT_EQ(qApp, nullptr);
  for (int round = 0; round < 2; ++round) {
    application().setStyleSheet("QWidget { margin: 3px; }");
    application().setStyle(new QProxyStyle);
    auto window = std::make_unique<QWidget>();
    window->show();
    EXPECT_TRUE(shows_again());
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Folder"), "Folder");
    EXPECT_EQ(QApplication::topLevelWidgets(), QList<QWidget*>{window.get()});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    window.reset();
    end_application();
    EXPECT_TRUE(shows_again());
  }
  char name[] = "host";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QCoreApplication without_windows(count, arguments);
  EXPECT_EQ(show(), "the host's application object can show no windows");
}

TEST_F(Host, GetsItsOwnExceptionBackFromAnyWindow) {
  for (const bool own : {true, false}) {
    if (!own) application();
    for (int depth = 1; depth <= windows; ++depth) {
      const std::string before = printed_store();
      play(way_down(depth, [] { soon([] { throw std::runtime_error("the host's"); }); }));
      EXPECT_EQ(show(), "the host's") << depth;
      EXPECT_TRUE(all_done()) << depth;
      EXPECT_EQ(printed_store(), before) << "an editor without a title leaves nothing";
      EXPECT_TRUE(shows_again()) << depth;
    }
  }
}

TEST_F(Host, QuitsFromAnyWindow) {
  application().setQuitOnLastWindowClosed(false);
  for (int depth = 1; depth <= windows; ++depth) {
    EXPECT_EQ(run_with(way_down(depth, [] { soon([] { QApplication::quit(); }); })), 0);
    EXPECT_EQ(returned_, "") << depth;
    returned_ = "not at all";
    EXPECT_EQ(run_with(way_down(depth, [] { soon([] { QCoreApplication::exit(3); }); })), 3);
    EXPECT_EQ(returned_, "") << depth;
    EXPECT_TRUE(shows_again()) << depth;
  }
  // The editor keeps its title as by its own button, and asks nothing.
  run_with(way_down(2, [] {
    QApplication::activeModalWidget()->findChild<QLineEdit*>("Text1")->setText("題");
    QApplication::quit();
  }));
  EXPECT_NE(printed_store().find("題"), std::string::npos);
  // A dialog of the host's on top is closed, too; one that refuses keeps the program.
  class stubborn : public QDialog {
    void closeEvent(QCloseEvent* event) override {
      std::exchange(refuses, false) ? event->ignore() : QDialog::closeEvent(event);
    }
    bool refuses = true;
  };
  steps script = way_down(3, [] { stubborn().exec(); });
  script.push_back([] {
    QApplication::quit();
    soon([] { QApplication::quit(); });
  });
  returned_ = "not at all";
  EXPECT_EQ(run_with(script), 0);
  EXPECT_EQ(returned_, "");
}

TEST_F(Host, GoesOnWithoutWindowsOfItsOwn) {
  bool went_on = false;
  application();
  play({[] { press("close"); }});
  soon([&] {
    show();
    QTimer::singleShot(50, qApp, [&] {
      went_on = true;
      QCoreApplication::exit();
    });
  });
  QApplication::exec();
  EXPECT_TRUE(went_on);
}

TEST_F(Host, HidesAndClosesAllWindows) {
  application();
  for (int depth = 1; depth <= windows; ++depth) {
    play(way_down(depth, [] {
      for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    }));
    EXPECT_EQ(show(), "") << depth;
    EXPECT_TRUE(shows_again());
  }
  play({[] { QApplication::closeAllWindows(); }});
  EXPECT_EQ(show(), "");
}

TEST_F(Host, MayEndTheProcessUnderADialog) {
  for (int depth = 1; depth <= windows; ++depth) {
    play(way_down(depth, [] { soon([] { std::exit(7); }); }));
    EXPECT_EXIT(show(), testing::ExitedWithCode(7), "") << depth;
  }
}

TEST_F(Host, CallsWithinACall) {
  std::string within;
  play({[&] {
    within = show();
    press("close");
  }});
  EXPECT_EQ(show(), "");
  EXPECT_EQ(within, "the title browser runs on this thread already");
}

/// A library of ours once more, as plug-ins of one program may each bring it along.
TEST_F(Host, HasTwoOfTheLibrary) {
  const std::string copy = std::filesystem::temp_directory_path() / "copy_of_library.so";
  std::filesystem::copy_file(SHARED_LIBRARY, copy,
                             std::filesystem::copy_options::overwrite_existing);
  void* const library = ::dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << ::dlerror();
  const auto function = [&](const auto& like, const char* name) {
    return reinterpret_cast<decltype(&like)>(::dlsym(library, name));
  };
  const auto show_other = function(ta_vorlumine_show, "ta_vorlumine_show");
  ta_vorlumine_editor* other = function(ta_vorlumine_create, "ta_vorlumine_create")();
  function(ta_vorlumine_set_connect_string, "ta_vorlumine_set_connect_string")(
      other, connect_string().c_str());
  ASSERT_NE(show_other, &ta_vorlumine_show);
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(shows_again());
    play({[] { press("close"); }});
    EXPECT_EQ(show_other(other), 0);
  }
  // One over the other, and an exception through both.
  play({[&] { EXPECT_EQ(show_other(other), 0); }, [] { press("close"); }, [] { press("close"); }});
  EXPECT_EQ(show(), "");
  EXPECT_TRUE(all_done());
  play({[&] { show_other(other); }, [] { soon([] { throw std::runtime_error("the host's"); }); },
        [] { press("close"); }});
  EXPECT_EQ(show(), "");
  function(ta_vorlumine_destroy, "ta_vorlumine_destroy")(other);
  ::dlclose(library);
  EXPECT_TRUE(shows_again());
  application();
  QToolButton button;
  EXPECT_NE(QAccessible::queryAccessibleInterface(&button), nullptr);
  std::filesystem::remove(copy);
}

TEST_F(Host, AsksForTheVersion) {
  EXPECT_STREQ(ta_vorlumine_version(), VERSION);
  EXPECT_STREQ(ta_vorlumine::replaceClass::version(), VERSION);
}

}  // namespace
