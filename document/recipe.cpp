// SPDX-License-Identifier: MIT
#include "document/recipe.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QUrl>
#include <charconv>
#include <climits>
#include <optional>

#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::Recipe)
};

constexpr qint64 kMostBytes = qint64{64} << 20;
constexpr std::size_t kMostSteps = 4'000'000;
constexpr std::size_t kMostRenders = 10'000;
constexpr int kLargestBrush = 100;
constexpr int kLargestSide = 1 << 28;
constexpr int kFarthest = 10'000'000;  // image pixels
constexpr int kCheckDigits = 8;

/// A line that can't be read; what() says why.
struct Unreadable {
    const char* why;
};

using Words = QList<QByteArrayView>;

Words SplitAt(QByteArrayView text, char separator) {
    Words words;
    for (qsizetype begin = 0;;) {
        const qsizetype end = text.indexOf(separator, begin);
        words += text.sliced(begin, (end < 0 ? text.size() : end) - begin);
        if (end < 0) return words;
        begin = end + 1;
    }
}

template <typename Integer>
Integer NumberOf(QByteArrayView word, Integer from, Integer to, int base = 10) {
    Integer number{};
    const char* const end = word.data() + word.size();
    const auto [stopped, error] = std::from_chars(word.data(), end, number, base);
    if (word.isEmpty() || error != std::errc() || stopped != end) throw Unreadable{"a number is missing"};
    if (number < from || number > to) throw Unreadable{"a number is out of its range"};
    return number;
}

std::pair<int, int> PairOf(QByteArrayView word, char separator, int from, int to) {
    const Words parts = SplitAt(word, separator);
    if (parts.size() != 2) throw Unreadable{"a pair of numbers is missing"};
    return {NumberOf(parts[0], from, to), NumberOf(parts[1], from, to)};
}

QPoint PointOf(QByteArrayView word) {
    const auto [x, y] = PairOf(word, ',', -kFarthest, kFarthest);
    return {x, y};
}

ColorBytes ColorOf(QByteArrayView word) {
    if (word.size() != 7 || word[0] != '#') throw Unreadable{"a color is written #rrggbb"};
    const int value = NumberOf(word.sliced(1), 0, 0xffffff, 16);
    return {value >> 16, (value >> 8) & 0xff, value & 0xff};
}

QByteArray ColorText(const ColorBytes& color) {
    return '#' + QByteArray::number((1 << 24) | (color.red << 16) | (color.green << 8) | color.blue, 16).mid(1);
}

/// A file that lies beside the text, and its bits per pixel.
Recipe::KeptPicture KeptOf(const Words& words) {
    const QString name = QUrl::fromPercentEncoding(words[0].toByteArray());
    if (name.isEmpty() || name.startsWith(u'.') || name.contains(u'/') || name.contains(u'\\') ||
        name.contains(QChar(0)))
        throw Unreadable{"not a file name"};
    return {name, NumberOf(words[1], 24, 32) == 32};
}

QString UnescapedPath(QByteArrayView text) {
    QByteArray path;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            path += text[i];
            continue;
        }
        if (++i == text.size() || (text[i] != 'n' && text[i] != 'r' && text[i] != '\\'))
            throw Unreadable{"an unknown sign behind a backslash"};
        path += text[i] == 'n' ? '\n' : text[i] == 'r' ? '\r' : '\\';
    }
    if (path.isEmpty() || path.contains('\0')) throw Unreadable{"a file name is missing"};
    return QString::fromUtf8(path);
}

class Reader {
 public:
    Recipe Read(const QByteArray& text) {
        qsizetype begin = 0;
        int number = 0;
        try {
            while (begin < text.size()) {
                ++number;
                const qsizetype end = text.indexOf('\n', begin);
                if (end < 0 && (recipe_.isJournal || number == 1)) throw Unreadable{"the line has no end"};
                QByteArrayView line = QByteArrayView(text).sliced(begin, (end < 0 ? text.size() : end) - begin);
                if (line.endsWith('\r')) line.chop(1);
                if (number == 1) ReadHeader(line);
                const std::uint32_t check = recipe_.isJournal ? TakeCheck(line) : 0;
                if (number > 1) ReadLine(line);
                recipe_.check = check;
                begin = end < 0 ? text.size() : end + 1;
                recipe_.certainBytes = begin;
            }
            if (number == 0) throw Unreadable{"the file is empty"};
        } catch (const Unreadable& fault) {
            recipe_.fault = QStringLiteral("line %1: %2").arg(number).arg(QLatin1String(fault.why));
        }
        if (recipe_.fault.isEmpty() && recipe_.size.isEmpty()) recipe_.fault = Texts::tr("it opens no picture");
        return std::move(recipe_);
    }

 private:
    void ReadHeader(QByteArrayView line) {
        // The check is cut off later, as it is only now known to be there.
        const Words words = SplitAt(line, ' ');
        if (words.size() < 5 || words[0] != "kelu" || (words[1] != "journal" && words[1] != "recipe") ||
            words[3] != "effects")
            throw Unreadable{"this is no recipe"};
        recipe_.isJournal = words[1] == "journal";
        if (words.size() != (recipe_.isJournal ? 6 : 5)) throw Unreadable{"this is no recipe"};
        if (NumberOf(words[2], 1, INT_MAX) != kRecipeFormat)
            throw Unreadable{"it is written by another version of Kelu, in a format unknown to this one"};
        recipe_.effects = NumberOf(words[4], 1, INT_MAX);
    }

    std::uint32_t TakeCheck(QByteArrayView& line) const {
        constexpr qsizetype kLength = kCheckDigits + 2;
        if (line.size() < kLength || line.last(kLength).first(2) != " ~") throw Unreadable{"the line is damaged"};
        const auto told = NumberOf<std::uint32_t>(line.last(kCheckDigits), 0, UINT32_MAX, 16);
        line.chop(kLength);
        const std::uint32_t check = NextCheck(recipe_.check, line);
        if (check != told) throw Unreadable{"the line is damaged"};
        return check;
    }

    void ReadLine(QByteArrayView line) {
        if (line.startsWith("file ")) {
            recipe_.file = UnescapedPath(line.sliced(5));
            return;
        }
        if (!recipe_.isJournal) {
            line = line.trimmed();
            if (line.isEmpty() || line.startsWith('#')) return;
        }
        const Words words = SplitAt(line, ' ');
        const QByteArrayView verb = words[0];
        if (recipe_.isJournal && ReadJournalLine(words)) return;
        if (verb == "open") return ReadOpen(words);
        if (verb == "paint") {
            Expect(words, 5);
            recipe_.brush = {KeptOf(words.sliced(3)), NumberOf(words[1], 1, kLargestBrush), NumberOf(words[2], 0, 100)};
            return;
        }
        if (recipe_.size.isEmpty()) throw Unreadable{"the picture must be opened first"};
        if (verb == "apply") return ReadApply(words);
        if (verb == "stroke" || verb == "more") return ReadStroke(words);
        if (verb == "brush") return ReadBrush(words);
        if (verb == "soft") {
            Expect(words, 2);
            return Add({.kind = Recipe::Kind::Soft, .number = NumberOf(words[1], 0, 100)}, false);
        }
        Expect(words, 1);
        if (verb == "undo") return Add({.kind = Recipe::Kind::Undo}, true);
        if (verb == "all") return Add({.kind = Recipe::Kind::All}, true);
        if (verb == "redo") return Add({.kind = Recipe::Kind::Redo}, true);
        if (verb != "settled") throw Unreadable{"an unknown word"};
        recipe_.unsaved = false;
    }

    /// What only a journal can hold: the picture beside it, and the file's state.
    bool ReadJournalLine(const Words& words) {
        if (words[0] == "stamp") {
            Expect(words, 4);
            recipe_.fileBytes = NumberOf<qint64>(words[1], 0, LLONG_MAX);
            recipe_.fileSum = words[3].toByteArray();
            return true;
        }
        if (words[0] == "kept") {
            Expect(words, 3);
            recipe_.kept = KeptOf(words.sliced(1));
            return true;
        }
        return false;
    }

    void ReadOpen(const Words& words) {
        if (!recipe_.size.isEmpty()) throw Unreadable{"a second picture"};
        if (words.size() != 2 && !(words.size() == 3 && words[2] == "shrunk")) throw Unreadable{"not an open line"};
        const auto [width, height] = PairOf(words[1], 'x', 1, kLargestSide);
        recipe_.size = {width, height};
        recipe_.shrunk = words.size() == 3;
    }

    void ReadBrush(const Words& words) {
        if (words.size() < 2) throw Unreadable{"the brush's size is missing"};
        Recipe::Step brush{.kind = Recipe::Kind::Brush, .number = NumberOf(words[1], 0, kLargestBrush)};
        for (const QByteArrayView word : words.sliced(2)) {
            if (word == "from=original")
                brush.source = BrushSource::Original;
            else if (word == "from=render")
                brush.source = BrushSource::Render;
            else if (word.startsWith("soft="))
                brush.softness = static_cast<std::uint8_t>(NumberOf(word.sliced(5), 0, 100));
            else
                throw Unreadable{"an unknown property of a brush"};
        }
        Add(brush, false);
    }

    void ReadApply(const Words& words) {
        if (words.size() < 2) throw Unreadable{"the effect is missing"};
        Recipe::Render render;
        render.effect = NumberOf(words[1], 1, 99'999);
        for (const QByteArrayView word : words.sliced(2)) {
            if (word == "failed") {
                render.done = false;
                continue;
            }
            const qsizetype equals = word.indexOf('=');
            const QByteArrayView name = word.first(std::max<qsizetype>(equals, 0));
            const QByteArrayView value = word.sliced(equals + 1);
            EffectInputs& in = render.inputs;
            if (name == "s1" || name == "s2" || name == "s3")
                in.slider[static_cast<std::size_t>(name[1] - '1')] = NumberOf(value, -100'000, 100'000);
            else if (name == "x")
                in.x = NumberOf(value, -kFarthest, kFarthest);
            else if (name == "y")
                in.y = NumberOf(value, -kFarthest, kFarthest);
            else if (name == "color1")
                in.color1 = ColorOf(value);
            else if (name == "color2")
                in.color2 = ColorOf(value);
            else if (name == "choice")
                in.choice = NumberOf(value, 0, 1000);
            else
                throw Unreadable{"an unknown input of an effect"};
        }
        if (recipe_.renders.size() == kMostRenders) throw Unreadable{"too many effects"};
        recipe_.renders.push_back(render);
        Add({.kind = Recipe::Kind::Apply, .number = static_cast<int>(recipe_.renders.size()) - 1}, false);
    }

    void ReadStroke(const Words& words) {
        const bool isNew = words[0] == "stroke";
        if (words.size() < (isNew ? 2 : 3)) throw Unreadable{"a stroke without points"};
        QPoint last = PointOf(words[1]);
        for (const QByteArrayView word : words.sliced(2)) PointOf(word);  // all or nothing of a line
        if (isNew) Add({.kind = Recipe::Kind::Press, .from = last, .to = last}, true);
        for (const QByteArrayView word : words.sliced(2)) {
            const QPoint point = PointOf(word);
            Add({.kind = Recipe::Kind::Line, .from = last, .to = point}, true);
            last = point;
        }
    }

    static void Expect(const Words& words, qsizetype count) {
        if (words.size() != count) throw Unreadable{"a line with too few or too many words"};
    }

    void Add(const Recipe::Step& step, bool changes) {
        if (recipe_.steps.size() == kMostSteps) throw Unreadable{"too many strokes"};
        recipe_.steps.push_back(step);
        if (changes) recipe_.unsaved = true;
    }

    Recipe recipe_;
};

/// The first bytes of a file, or all.
QByteArray ReadFile(const QString& path, std::optional<qint64> most = {}) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, file.errorString(), QStringLiteral("ReadRecipe"));
    return most ? file.read(*most) : file.readAll();
}

/// Copies the picture to a file of its own beside the recipe, and returns its name.
QString CopyBeside(const QFileInfo& recipe, const QString& picture) {
    const QByteArray bytes = ReadFile(picture);
    QString name = recipe.completeBaseName() + QStringLiteral(".paint.png");
    const auto path = [&] { return recipe.absoluteDir().filePath(name); };
    // Nothing gives way that is not the same.
    for (int i = 2; QFileInfo::exists(path()); ++i) {
        if (ReadFile(path()) == bytes) return name;
        name = QStringLiteral("%1.paint-%2.png").arg(recipe.completeBaseName()).arg(i);
    }
    WriteFile(path(), bytes);
    return name;
}

}  // namespace

Recipe ReadRecipeText(const QByteArray& text) { return Reader().Read(text); }

QByteArray ReadRecipeBytes(const QString& path) {
    // Read one byte more than allowed: a pipe or a growing file tells no honest size.
    const QByteArray text = ReadFile(path, kMostBytes + 1);
    if (text.size() > kMostBytes)
        throw Error(kFileError, Texts::tr("The file is too large for a recipe"), QStringLiteral("ReadRecipe"));
    return text;
}

Recipe ReadRecipeFile(const QString& path) {
    Recipe recipe = ReadRecipeText(ReadRecipeBytes(path));
    recipe.folder = QFileInfo(path).path();
    return recipe;
}

QString PictureOfRecipe(const Recipe& recipe, const QString& recipePath) {
    return QDir::cleanPath(QFileInfo(recipePath).absoluteDir().filePath(recipe.file));
}

void WriteRecipe(Recipe recipe, const QString& path) {
    CheckWhole(recipe);
    const QFileInfo info(path);
    recipe.file = info.absoluteDir().relativeFilePath(recipe.file);
    QString& paint = recipe.brush.paint.name;
    if (!paint.isEmpty()) paint = CopyBeside(info, QDir(recipe.folder).filePath(paint));
    WriteFile(path, HeaderLine(/*isJournal=*/false) + LinesOf(recipe));
}

QByteArray LinesOf(const Recipe& recipe) {
    QByteArray lines = FileLine(recipe.file) + OpenLine(recipe.size, recipe.shrunk) + PaintLine(recipe.brush);
    const Recipe::Step* before = nullptr;  // the press or line that the present stroke goes on from
    const auto endStroke = [&] {
        if (std::exchange(before, nullptr)) lines += '\n';
    };
    const auto put = [&](const QPoint& point) {
        lines += ' ' + QByteArray::number(point.x()) + ',' + QByteArray::number(point.y());
    };
    for (const Recipe::Step& step : recipe.steps) {
        const bool goesOn = step.kind == Recipe::Kind::Line && before && before->to == step.from;
        if (!goesOn) endStroke();
        switch (step.kind) {
            case Recipe::Kind::Apply:
                lines += ApplyLine(recipe.renders[static_cast<std::size_t>(step.number)]);
                break;
            case Recipe::Kind::Brush:
                lines += BrushLine(step);
                break;
            case Recipe::Kind::Soft:
                lines += "soft " + QByteArray::number(step.number) + '\n';
                break;
            case Recipe::Kind::Undo:
                lines += "undo\n";
                break;
            case Recipe::Kind::Redo:
                lines += "redo\n";
                break;
            case Recipe::Kind::All:
                lines += "all\n";
                break;
            case Recipe::Kind::Press:
                lines += "stroke";
                put(step.to);
                before = &step;
                break;
            case Recipe::Kind::Line:
                if (!goesOn) {
                    lines += "more";
                    put(step.from);
                }
                put(step.to);
                before = &step;
                break;
        }
    }
    endStroke();
    return lines;
}

void CheckWhole(const Recipe& recipe) {
    if (!recipe.fault.isEmpty())
        throw Error(kFileError, Texts::tr("The recipe can't be read: ") + recipe.fault, QStringLiteral("ReadRecipe"));
}

QByteArray HeaderLine(bool isJournal) {
    return QByteArray("kelu ") + (isJournal ? "journal " : "recipe ") + QByteArray::number(kRecipeFormat) +
           " effects " + QByteArray::number(kEffectDefinitions) + '\n';
}

QByteArray FileLine(const QString& path) {
    QByteArray text = path.toUtf8();
    text.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
    return "file " + text + '\n';
}

QByteArray OpenLine(const QSize& size, bool shrunk) {
    return "open " + QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height()) +
           (shrunk ? " shrunk\n" : "\n");
}

QByteArray PaintLine(const Recipe::KeptBrush& brush) {
    if (brush.paint.name.isEmpty()) return {};
    return "paint " + QByteArray::number(brush.size) + ' ' + QByteArray::number(brush.softness) + ' ' +
           QUrl::toPercentEncoding(brush.paint.name) + (brush.paint.hasAlpha ? " 32\n" : " 24\n");
}

QByteArray BrushLine(const Recipe::Step& brush) {
    QByteArray line = "brush " + QByteArray::number(brush.number);
    if (brush.softness != 0) line += " soft=" + QByteArray::number(brush.softness);
    if (brush.source == BrushSource::Original) line += " from=original";
    if (brush.source == BrushSource::Render) line += " from=render";
    return line + '\n';
}

QByteArray ApplyLine(const Recipe::Render& render) {
    QByteArray line = "apply " + QByteArray::number(render.effect);
    // What is not told is 0.
    const auto put = [&line](const char* name, int value) {
        if (value != 0) line += ' ' + QByteArray(name) + '=' + QByteArray::number(value);
    };
    const EffectInputs& in = render.inputs;
    put("s1", in.slider[0]);
    put("s2", in.slider[1]);
    put("s3", in.slider[2]);
    put("x", in.x);
    put("y", in.y);
    if (in.color1 != ColorBytes{}) line += " color1=" + ColorText(in.color1);
    if (in.color2 != ColorBytes{}) line += " color2=" + ColorText(in.color2);
    put("choice", in.choice);
    return line + (render.done ? "\n" : " failed\n");
}

// FNV-1a: a few instructions a byte, and any damage of a line shows but for one chance in four thousand million.
std::uint32_t NextCheck(std::uint32_t check, QByteArrayView line) {
    constexpr std::uint32_t kPrime = 16777619u;
    check = (check ^ 2166136261u) * kPrime;
    for (const char c : line) check = (check ^ static_cast<std::uint8_t>(c)) * kPrime;
    return check;
}

QByteArray WithChecks(const QByteArray& lines, std::uint32_t& check) {
    QByteArray text;
    text.reserve(lines.size() + lines.size() / 4);
    for (qsizetype begin = 0; begin < lines.size();) {
        const qsizetype end = lines.indexOf('\n', begin);
        const QByteArrayView line = QByteArrayView(lines).sliced(begin, end - begin);
        check = NextCheck(check, line);
        text += line;
        text += " ~" + QByteArray::number(check, 16).rightJustified(kCheckDigits, '0') + '\n';
        begin = end + 1;
    }
    return text;
}

}  // namespace kelu
