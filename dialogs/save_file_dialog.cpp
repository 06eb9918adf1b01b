// SPDX-License-Identifier: MIT
#include "dialogs/save_file_dialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QStandardPaths>
#include <QTreeView>

#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "pictures/picture_file.h"

namespace kelu {

namespace {

constexpr QSize kLeastSize(660, 440);  // device-independent pixels

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::SaveFileDialog)
};

}  // namespace

QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList descriptions;
    for (qsizetype i = 0; i < parts.size(); i += 2) descriptions += parts[i];
    return descriptions;
}

void DressFileDialog(QFileDialog& dialog) {
    // The toolkit's dialog has a layout; the desktop's own is not ours to dress.
    if (!dialog.layout()) return;
    AddWindowFrame(dialog);
    dialog.resize(kLeastSize * theme::TextScale());
    const auto* files = dialog.findChild<QTreeView*>();
    if (!files || files->header()->count() < 2) return;
    // Dates are read whole, names get what is left.
    QHeaderView& columns = *files->header();
    columns.setStretchLastSection(false);
    columns.setResizeContentsPrecision(0);
    columns.setSectionResizeMode(QHeaderView::ResizeToContents);
    columns.setSectionResizeMode(0, QHeaderView::Stretch);
}

static bool IsPdfName(const QString& name) { return name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive); }

QString NameForFilter(const QString& name, int filterIndex) {
    if (CanWritePicture(name) || IsPdfName(name) || filterIndex < 1) return name;
    return name + SaveDialog::Filter().split(u'|').value(2 * filterIndex - 1).remove(u'*');
}

bool MayReplaceFile(const QString& path, MsgDialog& questions) {
    if (!QFile::exists(path)) return true;
    return questions
               .ShowMessage({Texts::tr("Confirm"),
                             Texts::tr("'%1' is there already.\r\n\r\nReplace it?").arg(QFileInfo(path).fileName()),
                             MsgIcon::Exclamation, MsgButtons::YesNo})
               .answer == MsgAnswer::Yes;
}

bool SaveFileDialog::Show(QString& fileName, int& filterIndex) {
    if (folder_.isEmpty()) folder_ = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    // A folder that is not there would be taken for the name of a file.
    if (!QDir(folder_).exists()) folder_ = QDir::homePath();
    const QStringList filters = NameFilters(Filter());
    QFileDialog dialog(owner_, Texts::tr(kTitle), folder_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // we ask
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(filterIndex - 1));
    dialog.setDefaultSuffix(QString::fromLatin1(kDefaultExtension));
    DressFileDialog(dialog);
    const QFileInfo proposed(fileName);
    // Who saved in another place than the proposed one goes on there.
    const bool refused = proposed.path() == refusedFolder_;
    if (!fileName.isEmpty()) dialog.selectFile(proposed.dir().exists() && !refused ? fileName : proposed.fileName());
    for (;;) {
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
        filterIndex = static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1;
        fileName = NameForFilter(dialog.selectedFiles().first(), filterIndex);
        if (IsPdfName(fileName)) filterIndex = kPdfFilter;
        if (MayReplaceFile(fileName, questions_)) break;
        dialog.selectFile(fileName);
    }
    folder_ = QFileInfo(fileName).absolutePath();
    refusedFolder_ = folder_ == proposed.path() ? QString() : proposed.path();
    return true;
}

}  // namespace kelu
