// The account's password in the settings and in the desktop's store of secrets, a scripted one on a private bus.
// SPDX-License-Identifier: MIT
#include "output/mail/account_password.h"

#include <sys/prctl.h>

#include <QScopeGuard>
#include <QTest>
#include <csignal>

#include "output/mail/secret_store.h"
#include "platform/password_scrambling.h"
#include "tests/output/mail/mail_servers.h"
#include "tests/support/memory_settings.h"

namespace kelu {
namespace {

TEST(AccountPasswordTest, ReadsBackOrIsSaidToBeLost) {
    const auto restore =
        qScopeGuard([bus = qgetenv("DBUS_SESSION_BUS_ADDRESS")] { qputenv("DBUS_SESSION_BUS_ADDRESS", bus); });
    const QString application = "abcdefghijklmnop";
    const QString odd = QString::fromUtf8("`1~2ü3");
    MemorySettings settings;
    AccountPassword password(settings);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    EXPECT_TRUE(password.Save("pa55\"wrd9"));
    EXPECT_EQ(password.Read(), "pa55\"wrd9");
    for (const QString& lost : {application, odd}) {
        EXPECT_FALSE(password.Save(lost)) << lost.toStdString();
        EXPECT_FALSE(password.InStore());
    }

    // It lives as long as this program, which the store's library would end with its bus.
    static auto* const busProcess = new QProcess;
    QProcess& bus = *busProcess;
    bus.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("XDG_RUNTIME_DIR");  // where it would leave a folder that can't be removed
    bus.setProcessEnvironment(environment);
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    ASSERT_TRUE(bus.waitForReadyRead(10'000));
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    {
        const LoopbackServer store({}, KELU_SECRET_SERVICE);
        for (const QString& kept : {application, odd, QString("another of more than nine")}) {
            EXPECT_TRUE(password.Save(kept)) << kept.toStdString();
            EXPECT_TRUE(password.InStore());
            EXPECT_EQ(AccountPassword(settings).Read(), kept);
        }
        QString later;
        AccountPassword dialog(settings);
        dialog.FromStore(&bus, [&](const QString& secret) { later = secret; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !later.isEmpty(); }));
        EXPECT_EQ(later, "another of more than nine");
        EXPECT_TRUE(dialog.Save(later));

        EXPECT_TRUE(password.Save("short"));  // reads back from the settings again
        EXPECT_FALSE(password.InStore());
        EXPECT_TRUE(QTest::qWaitFor([] { return !ReadSecret("Mail account"); })) << "the old one lies on in the store";
        EXPECT_TRUE(password.Save(application));
    }
    // A store that is gone today: OK in a dialog that shows what the settings tell forgets nothing.
    AccountPassword without(settings);
    EXPECT_TRUE(without.Save(without.FromSettings()));
    EXPECT_TRUE(without.InStore());
}

}  // namespace
}  // namespace kelu
