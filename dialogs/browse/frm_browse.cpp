// SPDX-License-Identifier: MIT
#include "dialogs/browse/frm_browse.h"

#include <QAbstractItemView>
#include <QActionGroup>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

#include "controls/theme/tab_order.h"
#include "controls/theme/theme.h"
#include "controls/title_row/dialog_frame.h"
#include "controls/tool_button/tool_button.h"
#include "dialogs/browse/folder_combo.h"
#include "dialogs/browse/folder_paths.h"
#include "pictures/picture_format.h"
#include "platform/error.h"
#include "platform/language.h"

namespace kelu {

namespace {

constexpr QSize kStartSize(872, 568);  // device-independent pixels, as the next two
constexpr QSize kLeastFolderButton(104, 74);
constexpr int kSmallButton = 28;
constexpr std::array<const char*, 4> kFolderIcons{"picture", "folder_gallery", "folder_documents", "computer"};

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

ToolButton* Button(QWidget* parent, const char* icon, const char* name) {
    return Named(new ToolButton(QString::fromLatin1(icon), parent), name);
}

}  // namespace

bool IsPictureName(const QString& path) {
    const QStringList extensions = PictureExtensions();
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const QString& extension) { return path.endsWith(u'.' + extension, Qt::CaseInsensitive); });
}

frmBrowse::Places frmBrowse::Places::OfUser() {
    return {QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Gallery")),
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)};
}

frmBrowse::frmBrowse(Settings& settings, MsgDialog& dialog, std::function<void(const QString&)> open, QWidget* parent,
                     const Places& places, const ThumbnailCache& cache)
    : QDialog(parent),
      FileViewer_(Named(new FileViewer(cache, this), "FileViewer")),
      ComboDrive(Named(new FolderCombo(this), "ComboDrive")),
      lblLookin(Named(new QLabel(this), "lblLookin")),
      cmdFolder{Button(this, kFolderIcons[0], "cmdFolder1"), Button(this, kFolderIcons[1], "cmdFolder2"),
                Button(this, kFolderIcons[2], "cmdFolder3"), Button(this, kFolderIcons[3], "cmdFolder4")},
      cmdBack(Button(this, "back", "cmdBack")),
      CmdUp(Button(this, "up", "CmdUp")),
      cmdIcons(Button(this, "views", "cmdIcons")),
      mnuFFile(Named(new QMenu(this), "mnuFFile")),
      cmdOK(Named(new QPushButton(this), "cmdOK")),
      cmdCancel(Named(new QPushButton(this), "cmdCancel")),
      settings_(settings),
      dialog_(dialog),
      open_(std::move(open)),
      places_(places) {
    setObjectName(QStringLiteral("frmBrowse"));
    auto* views = new QActionGroup(this);
    for (QAction*& action : mnuViews) {
        action = mnuFFile->addAction(QString());
        action->setCheckable(true);
        views->addAction(action);
    }
    cmdOK->setEnabled(false);
    LayOut();
    Connect();
    SetView(FileViewer::ViewKind::Thumbnails);
    RemoveLeftLinks();
    SetUpMe();
}

void frmBrowse::LayOut() {
    resize(kStartSize.boundedTo(screen()->availableSize()));

    auto* folders = new QVBoxLayout;
    folders->setSpacing(theme::kSpacing);
    for (ToolButton* button : cmdFolder) {
        button->SetCaptionPlace(ToolButton::CaptionPlace::Below);
        button->SetIconSize(28);
        button->setCheckable(true);
        folders->addWidget(button);
    }
    folders->addStretch();

    auto* top = new QHBoxLayout;
    top->setSpacing(theme::kSpacing);
    lblLookin->setBuddy(ComboDrive);
    top->addWidget(lblLookin);
    top->addWidget(ComboDrive, 1);
    for (ToolButton* button : {cmdBack, CmdUp, cmdIcons}) {
        button->setFixedSize(kSmallButton, kSmallButton);
        top->addWidget(button);
    }

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kSpacing);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* grid = new QGridLayout;
    grid->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    grid->setHorizontalSpacing(theme::kMargin);
    grid->setVerticalSpacing(theme::kSpacing + 4);
    grid->addLayout(top, 0, 1);
    grid->addLayout(folders, 1, 0);
    grid->addWidget(FileViewer_, 1, 1);
    grid->addLayout(buttons, 2, 1);
    grid->setRowStretch(1, 1);

    MakeWindowFrame(*this)->addLayout(grid, 1);
    setSizeGripEnabled(true);
    // The tab order follows the eye: where to look, what is there, what to do.
    const QList<QAbstractItemView*> views = FileViewer_->findChildren<QAbstractItemView*>(Qt::FindDirectChildrenOnly);
    SetTabOrder({ComboDrive, cmdBack, CmdUp, cmdIcons, cmdFolder[0], cmdFolder[1], cmdFolder[2], cmdFolder[3], views[0],
                 views[1], cmdOK, cmdCancel});
    FileViewer_->setFocus();
}

void frmBrowse::Connect() {
    for (std::size_t i = 0; i < cmdFolder.size(); ++i)
        connect(cmdFolder[i], &ToolButton::clicked, this, [this, i] { ChooseFolder(i); });
    connect(ComboDrive, &FolderCombo::FolderChosen, FileViewer_, &FileViewer::SetFolder);
    connect(FileViewer_, &FileViewer::FolderChanged, this, [this](const QString& folder) {
        ComboDrive->SetFolder(folder);
        ComboDrive->SyncDisplay();
    });
    connect(FileViewer_, &FileViewer::ItemSelected, this, &frmBrowse::ItemChosen);
    connect(FileViewer_, &FileViewer::ItemActivated, this, &frmBrowse::ItemChosen);
    connect(cmdBack, &ToolButton::clicked, this, &frmBrowse::GoBack);
    connect(CmdUp, &ToolButton::clicked, FileViewer_, &FileViewer::GoUp);
    connect(cmdIcons, &ToolButton::clicked, this,
            [this] { mnuFFile->popup(cmdIcons->mapToGlobal(QPoint(0, cmdIcons->height()))); });
    for (std::size_t i = 0; i < mnuViews.size(); ++i)
        connect(mnuViews[i], &QAction::triggered, this, [this, i] { SetView(static_cast<FileViewer::ViewKind>(i)); });
    connect(ComboDrive, &FolderCombo::EditEnded, FileViewer_, qOverload<>(&QWidget::setFocus));
    connect(ComboDrive, &FolderCombo::PathTyped, this, &frmBrowse::GoTo);
    const auto onKey = [this](const QKeySequence& keys, auto&& work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    onKey(Qt::ALT | Qt::Key_Left, [this] { GoBack(); });
    onKey(Qt::ALT | Qt::Key_Up, [this] { FileViewer_->GoUp(); });
    onKey(Qt::Key_F5, [this] { FileViewer_->RefreshAll(); });
    onKey(Qt::CTRL | Qt::Key_L, [this] { ComboDrive->EditPath(); });
    // Not where text is typed.
    auto* up = new QShortcut(Qt::Key_Backspace, FileViewer_, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(up, &QShortcut::activated, FileViewer_, &FileViewer::GoUp);
    connect(cmdOK, &QPushButton::clicked, this, &frmBrowse::Ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmBrowse::SetUpMe() {
    LoadMySettings();
    const QString folder = settings_.ReadText(settings::kLastFolder.key, places_.gallery);
    FileViewer_->SetFilter(QStringLiteral("*.") + PictureExtensions().join(QStringLiteral(";*.")));
    FileViewer_->SetFolder(QDir(folder).exists() ? folder : places_.gallery);
    ComboDrive->SetFolder(FileViewer_->Folder());
    ComboDrive->SyncDisplay();
}

void frmBrowse::LoadMySettings() {
    RunShowingErrors(dialog_, [this] { ChangeLanguage(settings_.Read(settings::kLanguage)); });
}

void frmBrowse::ChangeLanguage(const QString& id) {
    UseLanguage(id);
    setWindowTitle(tr("Open"));
    const QString folders[] = {tr("My Pictures"), tr("Gallery"), tr("My Documents"), tr("My Computer")};
    for (std::size_t i = 0; i < cmdFolder.size(); ++i) {
        cmdFolder[i]->SetCaption(folders[i]);
        cmdFolder[i]->setAccessibleName(folders[i]);
    }
    QSize button = kLeastFolderButton;
    for (const ToolButton* each : cmdFolder) button = button.expandedTo(each->sizeHint());
    for (ToolButton* each : cmdFolder) each->setFixedSize(button);
    const QString views[] = {tr("Large Icons"), tr("Small Icons"), tr("List"), tr("Details"), tr("Thumbnails")};
    for (std::size_t i = 0; i < mnuViews.size(); ++i) mnuViews[i]->setText(views[i]);
    cmdOK->setText(tr("OK"));
    cmdCancel->setText(tr("Cancel"));
    lblLookin->setText(tr("Look in:"));
    cmdBack->SetTip(tr("Back one folder"));
    CmdUp->SetTip(tr("Move up one folder"));
    cmdIcons->SetTip(tr("Views"));
    FileViewer_->LoadTexts();
}

void frmBrowse::ChooseFolder(std::size_t button) {
    for (std::size_t i = 0; i < cmdFolder.size(); ++i) cmdFolder[i]->setChecked(i == button);
    const QString folders[] = {places_.pictures, places_.gallery, places_.documents,
                               QString::fromLatin1(FolderModel::kComputer)};
    FileViewer_->Refresh();
    FileViewer_->SetFolder(folders[button]);
}

void frmBrowse::GoBack() {
    ComboDrive->StepBack();
    FileViewer_->SetFolder(ComboDrive->Folder());
}

void frmBrowse::GoTo(const QString& typed) {
    RunShowingErrors(dialog_, [&] {
        QString path = typed.trimmed();
        if (path.startsWith(u"file:")) path = QUrl(path).toLocalFile();
        if (path == u"~" || path.startsWith(u"~/")) path.replace(0, 1, QDir::homePath());
        const QFileInfo found(QDir::cleanPath(QDir(FileViewer_->Folder()).absoluteFilePath(path)));
        if (path.isEmpty() || !found.exists() || !(found.isDir() || IsPictureName(path)))
            throw Error(kFileError, tr("There is no folder and no picture \"%1\"").arg(path));
        FileViewer_->SetFolder(found.isDir() ? found.filePath() : found.path());
        if (found.isFile()) FileViewer_->Mark(found.filePath());
    });
}

void frmBrowse::SetView(FileViewer::ViewKind view) {
    FileViewer_->SetView(view);
    mnuViews[static_cast<std::size_t>(view)]->setChecked(true);
}

void frmBrowse::ItemChosen() {
    const std::optional<FileViewer::Item> item = FileViewer_->CurrentItem();
    if (!item || !item->isFile || !IsPictureName(item->path)) return;
    path_ = item->path;
    cmdOK->setEnabled(true);
    cmdOK->setDefault(true);
}

int frmBrowse::exec() {
    do {
        refused_ = false;
        hide();  // only what is shown anew is modal
        QDialog::exec();
    } while (refused_);
    return result();
}

void frmBrowse::Ok() {
    // Out of the way while a large picture is read, and back if it can't be. Hidden, it also ends the round of exec.
    hide();
    refused_ = !RunShowingErrors(dialog_, [this] {
        open_(path_);
        SavePath();
    });
    if (refused_)
        show();
    else
        accept();
}

void frmBrowse::SavePath() {
    // The list of drives is no folder to come back to.
    QString folder = FileViewer_->Folder();
    while (IsPassingPath(folder)) folder = ParentFolder(folder);
    if (!folder.isEmpty()) settings_.Write(settings::kLastFolder, folder);
}

}  // namespace kelu
