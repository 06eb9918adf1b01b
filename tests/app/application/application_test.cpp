// Exceptions that escape from events: the user is told, and the program goes on. A program of its own, since it is
// about the application object.
// SPDX-License-Identifier: MIT
#include "app/application.h"

#include <gtest/gtest.h>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include "app/shell.h"
#include "platform/error.h"
#include "platform/termination.h"
#include "tests/support/kit.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

class Failing : public QWidget {
 public:
    int events = 0;

 protected:
    void mousePressEvent(QMouseEvent*) override { Fail(); }
    void keyPressEvent(QKeyEvent*) override {
        ++events;
        throw std::bad_alloc();
    }
    void paintEvent(QPaintEvent*) override { Fail(); }

 private:
    void Fail() {
        ++events;
        throw Error(kFileError, QStringLiteral("no room"));
    }
};

TEST(Application, GoesOnAfterAnEventThatFails) {
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaks;  // the toolkit's own copy of an event through which an exception passes
#endif
    ScriptedDialog dialog;
    auto& application = *static_cast<Application*>(qApp);
    application.ShowErrorsIn(&dialog);
    Failing widget;
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.repaint();
    EXPECT_GT(widget.events, 0);
    EXPECT_TRUE(dialog.shown.empty()) << "a painting that fails would fail again at once";

    // The next failure, while the message is up, adds no second one.
    dialog.whileShown = [&](const Message&) { QTest::mouseClick(&widget, Qt::LeftButton); };
    QTest::mouseClick(&widget, Qt::LeftButton);
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].text, "The following error has occured:\r\nno room (57)\r\n");
    dialog.whileShown = {};

    QTest::keyClick(&widget, Qt::Key_A);
    EXPECT_EQ(dialog.shown.size(), 2u);
    bool later = false;
    QTimer::singleShot(0, &widget, [] { throw Error(kEndOfFile, QStringLiteral("cut short")); });
    QTimer::singleShot(1, &widget, [&] { later = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return later; }));
    EXPECT_EQ(dialog.shown.size(), 3u);
    application.ShowErrorsIn(nullptr);
}

class UrlCatcher : public QObject {
    Q_OBJECT
 public:
    QList<QUrl> urls;
 public Q_SLOTS:
    void Open(const QUrl& url) { urls.append(url); }
};

TEST(Shell, OpensFilesThatAreThere) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromUtf8("with blank # ü.pdf"));
    WriteBytes(path, {});
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler("file", &catcher, "Open");
    EXPECT_TRUE(OpenDocument(path));
    EXPECT_FALSE(OpenDocument(folder.filePath("missing.pdf")));
    QDesktopServices::unsetUrlHandler("file");
    ASSERT_EQ(catcher.urls.size(), 1);
    EXPECT_EQ(catcher.urls[0].toLocalFile(), path);
}

TEST(Application, TheSessionsEndAsksNoWindow) {
    struct Stubborn : QWidget {
        int asked = 0;
        void closeEvent(QCloseEvent* event) override { ++asked, event->ignore(); }
    } window;
    window.show();
    const Termination termination;
    QObject::connect(&termination, &Termination::Requested, [] { QCoreApplication::exit(7); });
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });  // comes the way the session manager's word does
    QTimer::singleShot(5000, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 7);
    EXPECT_EQ(window.asked, 0);
}

}  // namespace
}  // namespace kelu

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    kelu::Application application(argc, argv);
    return RUN_ALL_TESTS();
}

#include "application_test.moc"
