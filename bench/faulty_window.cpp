// The real window, driven step by step while chosen calls into the system fail (tools/fault.c, preloaded by
// tools/faults_window.py). Reads "ROW FAULT" from standard input, a line each, and answers with a line: the number of
// calls, a tab, "done", "told" or "FOUND", a blank, and what was told or found. A fault of number 0 only counts;
// "room:N" leaves the step N MB of address space in place of a fault.
//
// Good is: the very result of an undisturbed step, or one clear error and nothing changed; nothing left beside the
// user's files, the journal tells what is on the canvas (or says that it does not), and the step can be done
// afterwards.
// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QMimeData>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>
#include <fstream>
#include <iostream>

#include "app/application.h"
#include "app/frm_main.h"
#include "controls/note/note_bar.h"
#include "controls/slider/ls_slider.h"
#include "controls/system_look/system_colors.h"
#include "controls/theme/theme.h"
#include "dialogs/browse/frm_browse.h"
#include "dialogs/options/frm_options.h"
#include "document/journal_file.h"
#include "document/replay.h"
#include "effects/catalogue/render_onto.h"
#include "effects/effect_panel.h"
#include "engine/pixel_memory.h"
#include "pictures/picture_file.h"
#include "platform/registry_access.h"
#include "platform/registry_file.h"
#include "tests/support/paper_only_printing.h"
#include "tests/support/scripted_camera.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/scripted_save_dialog.h"

#include <QCheckBox>
#include <QPushButton>

namespace {

using namespace kelu;

constexpr QSize kSize{1200, 900};  // tools/faults_window.py: what takes as much as such a picture counts as of its size
constexpr int kGrayscale = 1;

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::exit(2);
}

/// All that a step may change.
struct Look {
    QImage canvas, original;
    bool dirty = false, active = false, ready = false;
    QString name;
    QByteArray file;  ///< without the time that a PDF file tells
    QSize copied;
    bool operator==(const Look&) const = default;
};

class Walk {
 public:
    Walk() {
        for (const char* name : {"pictures", "journals", "temporary", "home"}) QDir(folder_.path()).mkdir(name);
        qputenv("TEMP", QFile::encodeName(In("temporary")));
        for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            qputenv(name, QFile::encodeName(In("home")));
        settings_.Write(settings::kResize, 0);
        settings_.Write(settings::kReminder, false);
        camera_.devices = {QStringLiteral("Camera")};
        const QImage photo(QStringLiteral(KELU_GALLERY "/cat.jpg"));
        base_ =
            photo.scaled(kSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
        WritePicture(base_, In("pictures/base.bmp"));
        for (const char* extension : {"bmp", "png", "gif", "jpg", "tif", "webp"})
            WritePicture(base_.mirrored(true, false), In("pictures/other.") + QLatin1String(extension));
        static_cast<Application*>(qApp)->ShowErrorsIn(&dialog_);
        window_.Start();
        window_.show();
        window_.EndSplash();
        Settle();
        window_.controls.pnlSettings->sldBrushSize->SetValue(60);
    }
    ~Walk() { static_cast<Application*>(qApp)->ShowErrorsIn(nullptr); }

    struct Row {
        std::string name;
        std::function<void(Walk&)> prepare;
        std::function<void(Walk&)> act;
        QString file = {};       ///< written by the step; below the folder
        bool painted = false;    ///< the journal must tell of it
        bool mayChange = false;  ///< beside an error, as the row itself tells
        bool quietly = false;    ///< what can't be had is left out
    };
    static std::vector<Row> Rows();

    /// What the step does when nothing fails.
    Look Undisturbed(const Row& row) {
        Prepare(row);
        Act(row);
        return Now(row);
    }

    std::string Try(const Row& row, const std::string& fault, long& calls) {
        if (goodOf_ != row.name) {
            good_ = Undisturbed(row);
            if (told_ > 0) return "FOUND told without a fault: " + Told();
            goodOf_ = row.name;
        }
        const Look& good = good_;
        Prepare(row);
        const Look before = Now(row);
        engine::ReleaseIdlePixelMemory();
        Arm(fault);
        Act(row);
        Arm("");
        calls = counted();
        const Look after = Now(row);
        const std::string found = Verdict(row, before, good, after);
        if (!found.empty()) return "FOUND " + found + ": " + Told();
        const std::string answer = told_ > 0 ? "told " + Told() : "done";
        if (Undisturbed(row) != good || told_ > 0) return "FOUND can't be done afterwards: " + Told();
        return answer;
    }

    static inline void (*arm)(const char*) = nullptr;
    static inline long (*counted)() = nullptr;

 private:
    QString In(const char* name) const { return folder_.filePath(QLatin1String(name)); }

    static void Arm(const std::string& fault) {
        constexpr const char* kRoom = "room:";
        const bool room = fault.starts_with(kRoom);
        rlimit space{};
        getrlimit(RLIMIT_AS, &space);
        space.rlim_cur = room ? AddressSpace() + (std::stoul(fault.substr(std::strlen(kRoom))) << 20) : space.rlim_max;
        setrlimit(RLIMIT_AS, &space);
        arm(room ? "" : fault.c_str());
    }
    /// What this process has taken of it, in bytes.
    static rlim_t AddressSpace() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    }

    /// From an event, as all that a user does.
    void Act(const Row& row) {
        QTimer::singleShot(0, &window_, [&] { row.act(*this); });
        QTest::qWait(1);
        Settle();
    }
    /// The work behind the window is done, and what it handed back.
    void Settle() {
        for (int i = 0; i < 3; ++i) {
            journal_.Flush(/*wait=*/true);
            QThreadPool::globalInstance()->waitForDone();
            QTest::qWait(1);
        }
        Listen();
    }
    void Listen() {
        const QString note = window_.controls.note->Text();
        if (note.contains(QStringLiteral("recovered")) || note.contains(QStringLiteral("Not enough"))) {
            ++told_;
            texts_ += note;
        }
        window_.controls.note->Clear();
        for (const Message& message : dialog_.shown)
            if (message.icon == MsgIcon::Error) {
                ++told_;
                texts_ += message.text;
            }
        dialog_.shown.clear();
    }
    std::string Told() const { return QString(texts_.join(u'|')).simplified().toStdString(); }

    void Prepare(const Row& row) {
        state_.ImageDirty = false;
        settings_.Write(settings::kResize, 0);
        dialog_.answers.clear();
        saveDialog_.names.clear();
        QGuiApplication::clipboard()->clear();
        row.prepare(*this);
        Settle();
        dialog_.answers.clear();
        if (!row.file.isEmpty() && row.file.startsWith(QStringLiteral("pictures")))
            WriteBytes(folder_.filePath(row.file), "what was there before");
        told_ = 0;
        texts_.clear();
        there_ = Entries();
    }
    /// Without the journals, whose names tell the time, and what the desktop keeps.
    QStringList Entries() const {
        QStringList all;
        for (const char* name : {"pictures", "temporary", "settings"})
            all += QDir(In(name)).entryList(QDir::Files | QDir::Hidden | QDir::System);
        all.removeAll(QStringLiteral("Kelu_Paste.png"));
        return all;
    }

    Look Now(const Row& row) {
        Look look{window_.surfaces.picCanvas.Picture().copy(),
                  window_.surfaces.picOriginal.Picture().copy(),
                  state_.ImageDirty,
                  state_.ImageActive,
                  state_.EffectReady,
                  state_.CurrentFileName,
                  row.file.isEmpty() ? QByteArray() : BytesOf(folder_.filePath(row.file)),
                  QGuiApplication::clipboard()->image().size()};
        if (const qsizetype date = look.file.indexOf("(D:20"); date > 0) look.file.remove(date + 3, 14);
        return look;
    }

    std::string Verdict(const Row& row, const Look& before, const Look& good, const Look& after) {
        if (Entries() != there_) return "left " + Entries().join(u' ').toStdString();
        if (told_ > 1) return "told more than once";
        if (told_ == 1 && !IsClear(texts_.first())) return "not a clear error";
        if (told_ == 0 && after != good && !row.quietly) return "nothing told, and not done";
        if (after.canvas != before.canvas && after.canvas != good.canvas) return "neither the old canvas nor the new";
        if (after.original != before.original && after.original != good.original) return "another original";
        if (after.file != before.file && after.file != good.file) return "neither the old file nor the new";
        if (told_ == 1 && !row.mayChange && after != before && after != good) return "told, and half done";
        return row.painted ? OfJournal(after) : std::string();
    }
    static bool IsClear(const QString& text) {
        static const QRegularExpression empty(QStringLiteral("nknown|No error|Success|: *\\(\\d+\\)|std::|: *$"));
        return text.simplified().size() > 12 && !text.contains(empty);
    }
    /// The newest one, which this step began or went on with.
    std::string OfJournal(const Look& after) {
        const QString told = texts_.join(u' ');
        const QFileInfoList files =
            QDir(In("journals")).entryInfoList({u'*' + QLatin1String(JournalFile::kSuffix)}, QDir::Files, QDir::Name);
        if (files.isEmpty() && told_ == 0) return "no journal";
        if (files.isEmpty()) return {};
        const Recipe recipe = ReadRecipeText(BytesOf(files.last().filePath()));
        if (told_ > 0 && told.contains(QStringLiteral("recovered"))) return {};
        if (!recipe.fault.isEmpty()) return "a damaged journal";
        Recipe whole = recipe;
        whole.folder = In("journals");
        Surfaces surfaces;
        Replay replay(whole, surfaces, &RenderEffectOn);
        replay.Open(ReadJournalPicture(whole));
        replay.DoAll();
        return surfaces.picCanvas.Picture() == after.canvas ? "" : "the journal tells of another picture";
    }

    // The user's hand.
    void Open(const char* name) { window_.OpenPicture(In("pictures/") + QLatin1String(name)); }
    void Opened() {
        Open("base.bmp");
        Settle();
        for (const QFileInfo& file : QDir(In("journals")).entryInfoList(QDir::Files)) QFile::remove(file.filePath());
    }
    void Armed(int effect = kGrayscale) {
        window_.controls.pnlSettings->SetUp(effect);
        state_.CurrentSFX = static_cast<std::int16_t>(effect);
        window_.Run(Command::Apply);
        Settle();
    }
    void Stroke(int y) {
        ImageX& canvas = *window_.controls.picCanvas;
        const QRectF shown = canvas.ImageRect();
        const auto at = [&](double x) {
            return QPointF(shown.left() + x * shown.width(), shown.top() + shown.height() * y / 100).toPoint();
        };
        QTest::mousePress(&canvas, Qt::LeftButton, {}, at(0.1));
        // A message takes the mouse: what was pressed is let go to answer it.
        const auto told = dialog_.shown.size();
        for (int i = 2; i < 9 && dialog_.shown.size() == told; ++i) QTest::mouseMove(&canvas, at(i / 10.0));
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, at(0.9));
    }
    void Painted() {
        Opened();
        Armed();
        Stroke(30);
        Settle();
    }
    void Save(const char* name) {
        saveDialog_.chosenFilter = QByteArray(name).endsWith("pdf") ? SaveDialog::kPdfFilter : SaveDialog::kPngFilter;
        saveDialog_.names = {In("pictures/") + QLatin1String(name)};
        window_.Run(Command::Save);
    }
    void Copied() { QGuiApplication::clipboard()->setImage(base_.mirrored(false, true)); }
    /// A journal that a killed program left.
    void Leave() {
        Painted();
        const QFileInfoList files = QDir(In("journals")).entryInfoList(QDir::Files);
        const QByteArray text = BytesOf(files.value(0).filePath());
        state_.ImageDirty = false;
        Opened();
        WriteBytes(In("journals/left.journal"), text);
    }
    /// Something to be done to the dialog of this kind once it is up; a message of the toolkit's own is no one's.
    template <typename Dialog>
    void InDialog(std::function<void(Dialog&)> work) {
        QTimer::singleShot(20, qApp, [this, work] {
            if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) work(*dialog);
        });
    }
    void Options() {
        InDialog<frmOptions>([](frmOptions& form) {
            form.chkResize->click();
            form.cmdOK->click();
        });
        window_.Run(Command::Settings);
    }
    void Browse() {
        InDialog<frmBrowse>([](frmBrowse& form) {
            QTest::qWait(150);  // the listing and its small pictures
            form.reject();
        });
        window_.Run(Command::Open);
    }

    QTemporaryDir folder_;
    QImage base_;
    RegistryFile store_{folder_.filePath(QStringLiteral("settings/settings.txt"))};
    clsRegistryAccess registry_{store_};
    Settings settings_{registry_};
    SharedState state_;
    ScriptedDialog dialog_;
    ScriptedSaveDialog saveDialog_;
    PaperOnlyPrinting printing_;
    ScriptedCamera camera_;
    Journal journal_{folder_.filePath(QStringLiteral("journals"))};
    frmMain window_{state_, {settings_, dialog_, saveDialog_, printing_, camera_, camera_, {}, {}, {}, {}, &journal_}};
    std::string goodOf_;  ///< the row that good_ is of
    Look good_;
    int told_ = 0;
    QStringList texts_, there_;
};

std::vector<Walk::Row> Walk::Rows() {
    const auto opened = [](Walk& w) { w.Opened(); };
    const auto painted = [](Walk& w) { w.Painted(); };
    std::vector<Row> rows;
    for (const char* extension : {"bmp", "png", "gif", "jpg", "tif", "webp"}) {
        const std::string other = std::string("other.") + extension;
        rows.push_back({std::string("open-") + extension, opened, [other](Walk& w) { w.Open(other.c_str()); }});
    }
    // What failed to render is armed all the same, with the picture as it is.
    for (const auto& [name, effect] :
         {std::pair{"grayscale", 1}, {"emboss", 20}, {"oil", 33}, {"neon", 48}, {"melt", 32}})
        rows.push_back({std::string("apply-") + name, opened, [e = effect](Walk& w) { w.Armed(e); }, {}, false, true});
    const auto armed = [](Walk& w) { w.Opened(), w.Armed(); };
    const auto stroke = [](Walk& w) { w.Stroke(60); };
    const auto paste = [](Walk& w) { w.window_.Run(Command::Paste); };
    rows.push_back({"stroke", armed, stroke, {}, true, true});
    rows.push_back({"stroke-more", painted, stroke, {}, true, true});
    rows.push_back(
        {"stroke-pasted", [paste](Walk& w) { w.Opened(), w.Copied(), paste(w), w.Armed(); }, stroke, {}, true, true});
    rows.push_back({"paint-all", armed, [](Walk& w) { w.window_.Run(Command::PaintAll); }, {}, true, true});
    rows.push_back({"restore-all", painted, [](Walk& w) { w.window_.Run(Command::RestoreAll); }, {}, true, true});
    rows.push_back({"undo", painted, [](Walk& w) { w.window_.Run(Command::Undo); }, {}, true});
    for (const char* extension : {"bmp", "png", "gif", "jpg", "tif", "webp", "pdf"}) {
        const std::string out = std::string("out.") + extension;
        rows.push_back({std::string("save-") + extension, painted, [out](Walk& w) { w.Save(out.c_str()); },
                        QStringLiteral("pictures/") + QString::fromStdString(out), false,
                        qstrcmp(extension, "pdf") == 0});  // a PDF that failed counts as saved all the same
    }
    rows.push_back({"copy", painted, [](Walk& w) { w.window_.Run(Command::Copy); }});
    rows.push_back({"paste", [](Walk& w) { w.Opened(), w.Copied(); }, paste});
    rows.push_back({"zoom", opened, [](Walk& w) {
                        for (int i = 0; i < 4; ++i) w.window_.Run(Command::ZoomIn);
                    }});
    rows.push_back({"settings", opened, [](Walk& w) { w.Options(); }, QStringLiteral("settings/settings.txt")});
    rows.push_back({"bring-back",
                    [](Walk& w) { w.Leave(); },
                    [](Walk& w) {
                        w.dialog_.answers = {MsgAnswer::Yes};
                        w.window_.EndSplash();
                    },
                    {},
                    false,
                    false,
                    true});
    rows.push_back({"browse", opened, [](Walk& w) { w.Browse(); }, {}, false, false, true});
    return rows;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    theme::Apply(application);
    SystemColors::SetCurrent(SystemColors::Dark());
    Walk::arm = reinterpret_cast<void (*)(const char*)>(dlsym(RTLD_DEFAULT, "kelu_fault_arm"));
    Walk::counted = reinterpret_cast<long (*)()>(dlsym(RTLD_DEFAULT, "kelu_fault_calls"));
    const std::vector<Walk::Row> rows = Walk::Rows();
    if (!Walk::arm || !Walk::counted) {  // a list of the rows, for who runs them
        for (const Walk::Row& row : rows) std::cout << row.name << "\n";
        return 0;
    }
    Walk walk;
    for (std::string name, fault; std::cin >> name >> fault;) {
        long calls = 0;
        for (const Walk::Row& row : rows)
            if (row.name == name) {
                const std::string answer = walk.Try(row, fault, calls);
                std::cout << calls << "\t" << answer << std::endl;
            }
    }
    return 0;
}
