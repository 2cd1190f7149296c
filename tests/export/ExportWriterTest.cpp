#include "support/FileSizeLimit.h"
#include "support/TestFixtures.h"

#include "base/Progress.h"
#include "export/ExportWriter.h"

#include <QDir>
#include <QFile>
#include <libxml/HTMLparser.h>
#include <libxml/xpath.h>
#include <tuple>

namespace {

// Remembers the labels the writer showed; the bar's steps are checked with the dialog.
class RecordingProgress final : public Progress {
public:
    void SetLabel(const QString& text) override { Labels << text; }
    QStringList Labels;
};

// An HTML page as libxml2's HTML parser reads it: what it complained about, and
// each table row as its colour and its cells' texts ("#F0F0F0 a|b").
struct ParsedPage {
    QStringList Errors;
    QStringList Rows;
};

// Text that libxml2 handed over, freed once read.
QString Taken(xmlChar* text) {
    const QString result = QString::fromUtf8(reinterpret_cast<const char*>(text));
    xmlFree(text);
    return result;
}

ParsedPage ParseHtml(const QByteArray& bytes) {
    ParsedPage page;
    xmlSetStructuredErrorFunc(&page.Errors, [](void* errors, xmlErrorPtr error) {
        static_cast<QStringList*>(errors)->append(QString::fromUtf8(error->message).trimmed());
    });
    htmlDocPtr doc =
        htmlReadMemory(bytes.constData(), int(bytes.size()), nullptr, nullptr, HTML_PARSE_NONET);
    xmlXPathContextPtr context = xmlXPathNewContext(doc);
    xmlXPathObjectPtr rows =
        xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>("//tr"), context);
    for (int i = 0; rows->nodesetval && i < rows->nodesetval->nodeNr; ++i) {
        xmlNodePtr row = rows->nodesetval->nodeTab[i];
        QStringList cells;
        for (xmlNodePtr cell = row->children; cell; cell = cell->next) {
            if (cell->type == XML_ELEMENT_NODE)
                cells << Taken(xmlNodeGetContent(cell));
        }
        page.Rows << Taken(xmlGetProp(row, reinterpret_cast<const xmlChar*>("bgcolor"))) + ' ' +
                         cells.join('|');
    }
    xmlXPathFreeObject(rows);
    xmlXPathFreeContext(context);
    xmlFreeDoc(doc);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    return page;
}

// Six games in two folders, one of them removed, with files of known sizes.
class ExportWriterTest : public LumbraTest {
protected:
    ExportWriterTest() {
        AddGame("Zelda Quest", "Games In The First Folder/Zelda Quest.SFC", 2048, "Action");
        AddGame("Chrono Saga: The Very Long Caption", "Games In The Second Folder/chrono.smc", 1023,
                "RPG");
        AddGame(RemovedCaption, "Games In The First Folder/gone.sfc", 10, "Action");
        AddGame("Tom & Jerry <script>", "Games In The Second Folder/Tom & Jerry.fig", 5000,
                "Ungrouped");
        AddGame("Mario Kart", "Games In The First Folder/mario kart.zip", 40960, "rpg");
        AddGame("Pilotwings", "Games In The Second Folder/pilotwings.swc", 1024, "RPG");
        m_choices.ProductLink = "file:///usr/share/doc/lumbra/README.md";
        m_choices.WriteOrder[5].Written = false; // the folder's text depends on the machine
    }

    void AddGame(const QString& caption, const QString& file, int size, const QString& group) {
        const QString path = WriteFile(file, QByteArray(size, 'x')).toLower();
        LumbraTest::AddGame(caption, path.section('/', -1), path.section('/', 0, -2) + '/', group);
    }

    // The export as text, or "failed: REASON".
    QString Export(const QString& name = "gamelist.txt") {
        QString reason;
        const QString target = TempPath(name);
        if (!WriteGameListExport(m_state.Games, m_choices, target, m_progress, &reason))
            return "failed: " + reason;
        return QString::fromUtf8(ReadFile(target));
    }

    // The named columns are written in this order, the others not.
    void WriteColumns(QStringList keys) {
        const qsizetype written = keys.size();
        for (const QString& key : ColumnKeys) {
            if (!keys.contains(key))
                keys << key;
        }
        for (int i = 0; i < ColumnCount; ++i)
            m_choices.WriteOrder[i] = {keys[i], i < written};
    }

    ExportChoices m_choices;
    RecordingProgress m_progress;
};

TEST_F(ExportWriterTest, PlainTextForEachMethodAndSortKey) {
    // A caption of 30 characters or more is written whole and shifts its line.
    EXPECT_EQ(Export(),
              QStringList({"Caption                       Group               Size      "
                           "Type                     Filename                      ",
                           QString(115, '-'),
                           "Chrono Saga: The Very Long CaptionRPG                    0K     "
                           "Super Magicom            chrono.smc                    ",
                           "Mario Kart                    rpg                   40K     "
                           "Zip Compressed           mario kart.zip                ",
                           "Pilotwings                    RPG                    1K     "
                           "Super WildCard           pilotwings.swc                ",
                           "Tom & Jerry <script>          Ungrouped              4K     "
                           "FIG File                 tom & jerry.fig               ",
                           "Zelda Quest                   Action                 2K     "
                           "Super Famicon            zelda quest.sfc               ",
                           "", "File Count: 5", "(Sorted by Caption)", "",
                           "Game List Generated By: Lumbra",
                           "file:///usr/share/doc/lumbra/README.md", ""})
                  .join("\r\n"));
    EXPECT_EQ(m_progress.Labels, (QStringList{"Sorting List...", "Exporting Game List..."}));

    // The other methods and columns: the rows, as the rest is checked above. A game folder
    // in any letter case.
    m_choices.Method = ExportMethod::GameFolder;
    m_choices.Filter = TempPath("Games In The SECOND Folder");
    m_choices.SortKey = "File Size";
    WriteColumns({"Filename", "File Size", "Folder", "Caption"});
    const QString folder = TempPath("games in the second folder/").toLower();
    EXPECT_EQ(
        Export().split("\r\n").mid(2, 4),
        (QStringList{
            "chrono.smc                       0K     " + folder +
                "Chrono Saga: The Very Long Caption",
            "pilotwings.swc                   1K     " + folder + "Pilotwings                    ",
            "tom & jerry.fig                  4K     " + folder + "Tom & Jerry <script>          ",
            ""}));

    // A group in any letter case. The file pattern method is checked through the command line.
    m_choices.Method = ExportMethod::Group;
    m_choices.Filter = "rpg";
    WriteColumns({"Caption", "File Size", "Group"});
    EXPECT_EQ(Export().split("\r\n").mid(2, 4),
              (QStringList{"Chrono Saga: The Very Long Caption   0K     RPG                 ",
                           "Pilotwings                       1K     RPG                 ",
                           "Mario Kart                      40K     rpg                 ", ""}));
}

TEST_F(ExportWriterTest, HtmlShowsEveryTextAsWrittenInAlternatingRows) {
    m_state.Games.Records[5].Caption = "Pilotwings \"é\" ★ </td></tr>";
    m_choices.Format = ExportFormat::Html;
    m_choices.SortKey = "File Size";
    WriteColumns({"Caption", "File Size", "File Type"});
    const QString target = TempPath("list.html");
    ASSERT_TRUE(WriteGameListExport(m_state.Games, m_choices, target, m_progress));
    const QByteArray bytes = ReadFile(target);
    EXPECT_TRUE(bytes.startsWith("<html><head>\r\n<meta http-equiv=\"Content-Type\" "
                                 "content=\"text/html; charset=iso-8859-1\">\r\n"));
    EXPECT_TRUE(
        bytes.contains("<td>Pilotwings &quot;\xe9&quot; &#9733; &lt;/td&gt;&lt;/tr&gt;</td>"));
    EXPECT_TRUE(bytes.endsWith("</body></html>\r\n"));

    const ParsedPage page = ParseHtml(bytes);
    EXPECT_EQ(page.Errors, QStringList());
    EXPECT_EQ(page.Rows, (QStringList{"#E4E4E4 Caption|Size|Type",
                                      "#F0F0F0 Chrono Saga: The Very Long Caption|0K|Super Magicom",
                                      "#F9F9F9 Pilotwings \"é\" ★ </td></tr>|1K|Super WildCard",
                                      "#F0F0F0 Zelda Quest|2K|Super Famicon",
                                      "#F9F9F9 Tom & Jerry <script>|4K|FIG File",
                                      "#F0F0F0 Mario Kart|40K|Zip Compressed"}));
    EXPECT_TRUE(QString::fromLatin1(bytes).contains("<a href=\"" + m_choices.ProductLink + "\" "));
}

TEST_F(ExportWriterTest, AFailureLeavesTheOldFileWholeAndSaysWhy) {
    const QString target = WriteFile("gamelist.txt", "the last export");
    QString reason;
    {
        const FileSizeLimit fullDisk(8);
        EXPECT_FALSE(WriteGameListExport(m_state.Games, m_choices, target, m_progress, &reason));
    }
    EXPECT_EQ(reason, "File too large");
    EXPECT_EQ(QDir(TempPath()).entryList(QDir::Files), QStringList("gamelist.txt"));

    // A game file that vanished fails the export unless the filter leaves it out.
    QFile::remove(TempPath("Games In The Second Folder/pilotwings.swc"));
    EXPECT_FALSE(WriteGameListExport(m_state.Games, m_choices, target, m_progress, &reason));
    EXPECT_TRUE(reason.endsWith("games in the second folder/pilotwings.swc"))
        << reason.toStdString();
    EXPECT_EQ(ReadFile(target), "the last export");
    m_choices.Method = ExportMethod::Group;
    m_choices.Filter = "ACTION";
    EXPECT_TRUE(Export().startsWith("Caption"));
    EXPECT_TRUE(Export("no such folder/list.txt").startsWith("failed: "));
}

TEST(FilePattern, MatchesWildcardsWithoutRegardToCase) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"super mario world.smc", "*.SMC", true},
        {"a.b.c", "a*c", true},
        {"game.1", "*.?", true},
        {"[x].sfc", "[x]*", true},
        {"game.sfc.zip", "*.sfc", false},
        {"x.smc", "?.s?", false},
        {"", "?", false},
        {"", "**", true}};
    for (const auto& [name, pattern, matches] : cases)
        EXPECT_EQ(MatchesFilePattern(name, pattern), matches) << name << " " << pattern;
}

} // namespace
