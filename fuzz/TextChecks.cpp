#include "TextChecks.h"

#include "FuzzCheck.h"
#include "base/StringHelpers.h"
#include "rom/FormatCaption.h"

#include <QStringList>
#include <algorithm>

namespace {

// The characters that FormatCaption turns into blanks, and the blank itself.
bool IsBlankClass(QChar c) {
    const char16_t code = c.unicode();
    return code <= 32 || (code >= 127 && code <= 160) || c == QLatin1Char('_');
}

bool HasSeparator(const QString& text) {
    return text.contains(QLatin1Char('/')) || text.contains(QLatin1Char('\\'));
}

void CheckInStrLast(const QString& text, const QString& search) {
    const int at = InStrLast(text, search);
    if (search.isEmpty() || at == 0) {
        FUZZ_CHECK(at == 0);
        FUZZ_CHECK(search.isEmpty() || !text.contains(search));
        return;
    }
    FUZZ_CHECK(at >= 1 && at - 1 + search.size() <= text.size());
    FUZZ_CHECK(QStringView(text).mid(at - 1, search.size()) == search);
    FUZZ_CHECK(text.indexOf(search, at) < 0);
}

void CheckGetField(const QString& record, const QString& delimiter) {
    FUZZ_CHECK(GetField(record, 0, delimiter).isEmpty());
    FUZZ_CHECK(GetField(record, -1, delimiter).isEmpty());
    if (delimiter.isEmpty()) {
        FUZZ_CHECK(GetField(record, 1, delimiter).isEmpty());
        return;
    }
    const QStringList fields = TrimBlanks(record).split(delimiter.at(0));
    // The first fields and the last one: every field would make long inputs quadratic.
    const int count = static_cast<int>(fields.size());
    for (int field = 1; field <= std::min(count, 8); ++field)
        FUZZ_CHECK(GetField(record, field, delimiter) == fields.at(field - 1));
    FUZZ_CHECK(GetField(record, count, delimiter) == fields.last());
    FUZZ_CHECK(GetField(record, count + 1, delimiter).isEmpty());
}

void CheckAddBackslash(const QString& path) {
    const QString trimmed = TrimBlanks(path);
    const QString folder = AddBackslash(path);
    FUZZ_CHECK(folder.startsWith(trimmed));
    FUZZ_CHECK(folder.size() - trimmed.size() ==
               (trimmed.isEmpty() || EndsWithSeparator(trimmed) ? 0 : 1));
    FUZZ_CHECK(trimmed.isEmpty() || EndsWithSeparator(folder));
    FUZZ_CHECK(AddBackslash(folder) == folder);
}

void CheckGetFileName(const QString& path) {
    const QString name = GetFileName(path);
    FUZZ_CHECK(path.endsWith(name));
    if (name == path)
        FUZZ_CHECK(!HasSeparator(path) || EndsWithSeparator(path));
    else
        FUZZ_CHECK(!name.isEmpty() && !HasSeparator(name) &&
                   EndsWithSeparator(path.chopped(name.size())));
}

void CheckChangeExtension(const QString& fileName, const QString& extension) {
    const QString name = fileName.isEmpty() ? QStringLiteral("New File") : fileName;
    const QString changed = ChangeExtension(fileName, extension);
    FUZZ_CHECK(changed.endsWith(extension));
    const QString stem = changed.chopped(extension.size());
    FUZZ_CHECK(stem.endsWith(QLatin1Char('.')));
    if (name.contains(QLatin1Char('.')))
        FUZZ_CHECK(name.startsWith(stem) && !name.mid(stem.size()).contains(QLatin1Char('.')));
    else
        FUZZ_CHECK(stem == name + QLatin1Char('.'));
}

} // namespace

void CheckCaption(const QString& text) {
    const QString caption = FormatCaption(text);
    FUZZ_CHECK(caption.isEmpty() == std::all_of(text.begin(), text.end(), IsBlankClass));
    FUZZ_CHECK(!caption.startsWith(QLatin1Char(' ')) && !caption.endsWith(QLatin1Char(' ')));
    FUZZ_CHECK(!caption.contains(QLatin1String("  ")));
    FUZZ_CHECK(std::none_of(caption.begin(), caption.end(),
                            [](QChar c) { return c != QLatin1Char(' ') && IsBlankClass(c); }));
    // The rules read the text lower-cased and only raise letters, so a caption read
    // again gives the same caption.
    FUZZ_CHECK(FormatCaption(caption) == caption);
}

void CheckStringHelpers(const QString& text, const QString& other) {
    CheckInStrLast(text, other);
    CheckGetField(text, other);
    CheckAddBackslash(text);
    CheckGetFileName(text);
    CheckChangeExtension(text, other);
}
