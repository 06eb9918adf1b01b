// kelu: the program with its window.
// SPDX-License-Identifier: MIT
#include <sys/resource.h>

#include <QFileInfo>
#include <QTimer>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "app/application.h"
#include "app/command_line.h"
#include "app/desktop_look.h"
#include "app/frm_main.h"
#include "app/shell.h"
#include "capture/detached_job.h"
#include "capture/gst_device_list.h"
#include "capture/gst_video_cap_x.h"
#include "capture/shutter_sound.h"
#include "controls/message_dialog/msg_dialog_window.h"
#include "controls/system_look/system_colors.h"
#include "controls/theme/theme.h"
#include "dialogs/save_file_dialog.h"
#include "document/journal_file.h"
#include "platform/hand_over.h"
#include "platform/language.h"
#include "platform/pool_job.h"
#include "platform/recent_files.h"
#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "platform/single_instance.h"
#include "platform/termination.h"

namespace {

constexpr int kLongestEnd = 1000;  // ms

/// Below it the libraries of a window end the program here and there, without a word, before it is up.
rlim_t LeastAddressSpace() {
    constexpr rlim_t kWindow = 1000u << 20, kStack = 8u << 20;  // bytes
    return kWindow + kStack * std::thread::hardware_concurrency();
}

void RememberRecent(const QString& path) {
    kelu::StartJob([path] { kelu::RememberRecentFile(path); });
}

int Run(kelu::Application& application, const QString& picture) {
    kelu::RegistryFile store(kelu::RegistryFile::UserPath());
    kelu::clsRegistryAccess registry(store);
    kelu::Settings settings(registry);
    kelu::UseLanguage(settings.Read(kelu::settings::kLanguage));
    if (!kelu::LanguageInUse().isEmpty()) QApplication::setLayoutDirection(kelu::LanguageLocale().textDirection());
    kelu::SingleInstance instance(QFileInfo(kelu::RegistryFile::UserPath()).path(), QStringLiteral("kelu"));
    kelu::SharedState state;
    kelu::MsgDialogWindow dialog;
    application.ShowErrorsIn(&dialog);
    const auto noDialog = qScopeGuard([&] { application.ShowErrorsIn(nullptr); });
    kelu::SaveFileDialog saveDialog(dialog);
    kelu::SystemPrintService printing;
    kelu::GstDeviceList cameras;
    kelu::GstVideoCapX camera(cameras);
    kelu::GstVideoCapX optionsCamera(cameras);
    kelu::Journal journal(kelu::JournalFile::UserFolder());
    kelu::frmMain window(state, {settings, dialog, saveDialog, printing, camera, optionsCamera, kelu::OpenDocument,
                                 [&] { return !instance.IsFirst(); }, kelu::PlaySoundFile, RememberRecent, &journal});
    dialog.SetParent(&window);
    saveDialog.SetParent(&window);
    const QString socket = kelu::HandOverSocket(QFileInfo(kelu::RegistryFile::UserPath()).path());
    if (!window.Start()) {
        if (!picture.isEmpty()) kelu::GivePicture(socket, picture);
        return 0;
    }
    const kelu::HandOver handOver(socket);
    QObject::connect(&handOver, &kelu::HandOver::PictureGiven, &window, &kelu::frmMain::TakePicture);
    kelu::Termination termination;
    QObject::connect(&termination, &kelu::Termination::Requested, &window, &kelu::frmMain::EndKeepingJournal);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &journal,
                     [&] { journal.Flush(/*wait=*/true); });
    window.show();
    // In the loop: a request to end while an error is told ends the program, too, not only that message.
    if (!picture.isEmpty()) QTimer::singleShot(0, &window, [&] { window.OpenPicture(picture); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i) words += QString::fromLocal8Bit(argv[i]);
    const kelu::CommandLine line = kelu::ReadCommandLine(words);
    std::fputs(line.out.toLocal8Bit().constData(), stdout);
    std::fputs(line.error.toLocal8Bit().constData(), stderr);
    if (line.status) return *line.status;

    rlimit space{};
    if (getrlimit(RLIMIT_AS, &space) == 0 && space.rlim_cur < LeastAddressSpace()) {
        std::fprintf(stderr, "kelu: the window needs %ju MB of address space, its limit is %ju MB (ulimit -v)\n",
                     std::uintmax_t{LeastAddressSpace() >> 20}, std::uintmax_t{space.rlim_cur >> 20});
        return 1;
    }

    // Without a display the toolkit would say so and crash. Its last words tell less than those before.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        static QString cause;
        if (type != QtFatalMsg && text.contains(QStringLiteral("display"))) cause = text.trimmed();
        if (type != QtFatalMsg) return;
        const QString told = cause.isEmpty() ? text.section(u'\n', 0, 0) : cause;
        std::fprintf(stderr, "kelu: %s\n", told.toLocal8Bit().constData());
        std::_Exit(1);
    });
    kelu::Application application(argc, argv);
    qInstallMessageHandler(nullptr);
    QApplication::setApplicationName(QStringLiteral("Kelu"));
    QApplication::setOrganizationName(QStringLiteral("Tarvane"));
    QApplication::setApplicationVersion(QStringLiteral(KELU_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tarvane.Kelu"));
    if (kelu::WantsHighContrast()) kelu::theme::UseHighContrast();
    kelu::theme::Apply(application);
    kelu::SystemColors::SetCurrent(kelu::SystemColors::Dark());
    const int status = Run(application, line.picture);
    // A camera that hangs in its driver, or the last of the shutter's sound, must not keep the process.
    if (!kelu::DetachedJobsEnd(kLongestEnd)) std::_Exit(status);
    return status;
}
