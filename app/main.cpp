// kelu: the program with its window. An argument is a picture to open.
// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "app/application.h"
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
#include "platform/language.h"
#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "platform/single_instance.h"

namespace {

constexpr int kLongestEnd = 1000;  // ms

int Run(kelu::Application& application) {
    kelu::RegistryFile store(kelu::RegistryFile::UserPath());
    kelu::clsRegistryAccess registry(store);
    kelu::Settings settings(registry);
    kelu::UseLanguage(settings.Read(kelu::settings::kLanguage));
    kelu::SingleInstance instance(QStringLiteral("kelu"));
    kelu::SharedState state;
    kelu::MsgDialogWindow dialog;
    application.ShowErrorsIn(&dialog);
    const auto noDialog = qScopeGuard([&] { application.ShowErrorsIn(nullptr); });
    kelu::SaveFileDialog saveDialog;
    kelu::SystemPrintService printing;
    kelu::GstDeviceList cameras;
    kelu::GstVideoCapX camera(cameras);
    kelu::GstVideoCapX optionsCamera(cameras);
    kelu::frmMain window(state, {settings, dialog, saveDialog, printing, camera, optionsCamera, kelu::OpenDocument,
                                 [&] { return !instance.IsFirst(); }, kelu::PlaySoundFile});
    if (!window.Start()) return 0;
    window.show();
    if (const QStringList words = QApplication::arguments(); words.size() > 1) window.OpenPicture(words[1]);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    kelu::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kelu"));
    QApplication::setOrganizationName(QStringLiteral("Tarvane"));
    QApplication::setApplicationVersion(QStringLiteral(KELU_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tarvane.Kelu"));
    kelu::theme::Apply(application);
    kelu::SystemColors::SetCurrent(kelu::SystemColors::Dark());
    const int status = Run(application);
    // A camera that hangs in its driver, or the last of the shutter's sound, must not keep the process.
    if (!kelu::DetachedJobsEnd(kLongestEnd)) std::_Exit(status);
    return status;
}
