#include "export/ExportPrefs.h"

#include "base/StringHelpers.h"
#include "catalogue/AppState.h"

#include <algorithm>
#include <optional>

namespace {

const QString MethodKey = QStringLiteral("optExportMethod");
const QString FolderKey = QStringLiteral("cboGameFolders");
const QString GroupKey = QStringLiteral("cboGroups");
const QString PatternKey = QStringLiteral("File Pattern ");
const QString PatternIndexKey = QStringLiteral("cboFilePatterns");
const QString SortKey = QStringLiteral("cboSortMethods");
const QString WriteOrderKey = QStringLiteral("cboWriteOrder");
const QString WrittenKey = QStringLiteral("chkWriteOrder");
const QString FormatKey = QStringLiteral("optFileFormat");
constexpr int MaxPatterns = 100; // the entry number has two digits

// The stored whole number when it lies in [0, limit), otherwise nothing.
std::optional<int> ReadIndex(const SettingsStore& store, const QString& key, int limit) {
    bool ok = false;
    const int value = store.Read(ExportPrefsSection, key).trimmed().toInt(&ok);
    if (!ok || value < 0 || value >= limit)
        return std::nullopt;
    return value;
}

void ReadInto(const SettingsStore& store, const QString& key, int limit, int& target) {
    if (const auto value = ReadIndex(store, key, limit))
        target = *value;
}

QString Number(int value) {
    return QString::number(value);
}

// The entry at index, or the list's first entry when the index is out of range.
QString EntryOrFirst(const QStringList& entries, int index) {
    if (index >= 0 && index < entries.size())
        return entries[index];
    return entries.value(0);
}

} // namespace

bool NamesEachColumnOnce(const std::array<int, ColumnCount>& order) {
    std::array<bool, ColumnCount> seen{};
    for (const int key : order) {
        if (key < 0 || key >= ColumnCount || seen[key])
            return false;
        seen[key] = true;
    }
    return true;
}

ExportPrefs LoadExportPrefs(const SettingsStore& store) {
    ExportPrefs prefs;
    ReadInto(store, MethodKey, 4, prefs.ExportMethod);
    ReadInto(store, FolderKey, GameFolderList::Capacity, prefs.GameFolderIndex);
    ReadInto(store, GroupKey, GroupList::Capacity + 1, prefs.GroupIndex);

    QStringList patterns;
    for (int i = 0; i < MaxPatterns; ++i) {
        const QString pattern = store.Read(ExportPrefsSection, PatternKey + IndexKey(i));
        if (pattern.isEmpty())
            break;
        patterns << pattern;
    }
    if (!patterns.isEmpty())
        prefs.FilePatterns = patterns;
    ReadInto(store, PatternIndexKey, int(prefs.FilePatterns.size()), prefs.FilePatternIndex);
    ReadInto(store, SortKey, ColumnCount, prefs.SortMethod);

    std::array<int, ColumnCount> order = prefs.WriteOrder;
    for (int i = 0; i < ColumnCount; ++i) {
        ReadInto(store, WriteOrderKey + Number(i), ColumnCount, order[i]);
        if (const auto written = ReadIndex(store, WrittenKey + Number(i), 2))
            prefs.WriteOrderChecked[i] = *written == 1;
    }
    if (NamesEachColumnOnce(order))
        prefs.WriteOrder = order;
    ReadInto(store, FormatKey, 2, prefs.FileFormat);
    return prefs;
}

void SaveExportPrefs(SettingsStore& store, const ExportPrefs& prefs) {
    store.DeleteSection(ExportPrefsSection);
    store.Write(ExportPrefsSection, MethodKey, Number(prefs.ExportMethod));
    store.Write(ExportPrefsSection, FolderKey, Number(prefs.GameFolderIndex));
    store.Write(ExportPrefsSection, GroupKey, Number(prefs.GroupIndex));
    for (int i = 0; i < std::min<int>(prefs.FilePatterns.size(), MaxPatterns); ++i)
        store.Write(ExportPrefsSection, PatternKey + IndexKey(i), prefs.FilePatterns[i]);
    store.Write(ExportPrefsSection, PatternIndexKey, Number(prefs.FilePatternIndex));
    store.Write(ExportPrefsSection, SortKey, Number(prefs.SortMethod));
    for (int i = 0; i < ColumnCount; ++i) {
        store.Write(ExportPrefsSection, WriteOrderKey + Number(i), Number(prefs.WriteOrder[i]));
        store.Write(ExportPrefsSection, WrittenKey + Number(i),
                    Number(prefs.WriteOrderChecked[i] ? 1 : 0));
    }
    store.Write(ExportPrefsSection, FormatKey, Number(prefs.FileFormat));
    store.Sync();
}

QStringList ExportFolderEntries(const GameFolderList& folders) {
    QStringList entries;
    for (int i = 0; i < folders.Count(); ++i)
        entries << AddBackslash(folders.Entries[i].Path);
    return entries;
}

QStringList ExportGroupEntries(const GroupList& groups) {
    QStringList entries{FixedGroup};
    for (int i = 0; i < groups.Count(); ++i)
        entries << groups.Entries[i];
    return entries;
}

ExportChoices ChoicesFromPrefs(const ExportPrefs& prefs, const AppState& state) {
    ExportChoices choices;
    choices.Method = static_cast<ExportMethod>(prefs.ExportMethod);
    switch (choices.Method) {
    case ExportMethod::EntireList:
        break;
    case ExportMethod::GameFolder:
        choices.Filter =
            EntryOrFirst(ExportFolderEntries(state.GameFolders), prefs.GameFolderIndex);
        break;
    case ExportMethod::Group:
        choices.Filter = EntryOrFirst(ExportGroupEntries(state.Groups), prefs.GroupIndex);
        break;
    case ExportMethod::FilePattern:
        choices.Filter = EntryOrFirst(prefs.FilePatterns, prefs.FilePatternIndex);
        break;
    }
    choices.SortKey = ColumnKeys[prefs.SortMethod];
    for (int i = 0; i < ColumnCount; ++i)
        choices.WriteOrder[i] = {ColumnKeys[prefs.WriteOrder[i]], prefs.WriteOrderChecked[i]};
    choices.Format = static_cast<ExportFormat>(prefs.FileFormat);
    choices.ProductLink = ProductLink();
    return choices;
}
