#include "support/FileSizeLimit.h"
#include "support/TestFixtures.h"

#include "base/Progress.h"
#include "export/ExportWriter.h"

#include <QDir>
#include <QFile>
#include <libxml/HTMLparser.h>
#include <libxml/xpath.h>

namespace {

// Remembers what the writer reported.
class RecordingProgress final : public Progress {
public:
    void SetLabel(const QString& text) override { Labels << text; }
    void SetMaximum(int maximum) override { Maximum = maximum; }
    void SetValue(int value) override { Values << value; }

    QStringList Labels;
    int Maximum = -1;
    QList<int> Values;
};

// An HTML page as libxml2's HTML parser reads it: what it complained about, and
// each table row's colour and cell texts.
struct ParsedPage {
    QStringList Errors;
    QStringList RowColours;
    QList<QStringList> Rows;
    QString Link;
};

QString NodeText(xmlNodePtr node) {
    xmlChar* text = xmlNodeGetContent(node);
    const QString result = QString::fromUtf8(reinterpret_cast<const char*>(text));
    xmlFree(text);
    return result;
}

QString Attribute(xmlNodePtr node, const char* name) {
    xmlChar* value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
    const QString result = QString::fromUtf8(reinterpret_cast<const char*>(value));
    xmlFree(value);
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
    const auto each = [&](const char* path, const auto& visit) {
        xmlXPathObjectPtr found =
            xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), context);
        for (int i = 0; found->nodesetval && i < found->nodesetval->nodeNr; ++i)
            visit(found->nodesetval->nodeTab[i]);
        xmlXPathFreeObject(found);
    };
    each("//tr", [&](xmlNodePtr row) {
        page.RowColours << Attribute(row, "bgcolor");
        QStringList cells;
        for (xmlNodePtr cell = row->children; cell; cell = cell->next) {
            if (cell->type == XML_ELEMENT_NODE)
                cells << NodeText(cell);
        }
        page.Rows << cells;
    });
    each("//a", [&](xmlNodePtr link) { page.Link = Attribute(link, "href"); });
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
        const QString path = WriteFile(file, QByteArray(size, 'x'));
        GameRecord& record = m_state.Games.Records[m_count++];
        record.Caption = caption;
        record.Filename = path.section('/', -1).toLower();
        record.Folder = path.section('/', 0, -2).toLower() + '/';
        record.Group = group;
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

    static QString Lines(const QStringList& lines) { return lines.join("\r\n") + "\r\n"; }
    static QString Footer(int count, const QString& sortKey) {
        return Lines({"", "File Count: " + QString::number(count), "(Sorted by " + sortKey + ")",
                      "", "Game List Generated By: Lumbra",
                      "file:///usr/share/doc/lumbra/README.md"});
    }

    int m_count = 0;
    ExportChoices m_choices;
    RecordingProgress m_progress;
};

TEST_F(ExportWriterTest, PlainTextForEachMethodAndSortKey) {
    // A caption of 30 characters or more is written whole and shifts its line.
    EXPECT_EQ(Export(), Lines({"Caption                       Group               Size      "
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
                               "Super Famicon            zelda quest.sfc               "}) +
                            Footer(5, "Caption"));
    EXPECT_EQ(m_progress.Labels, (QStringList{"Sorting List...", "Exporting Game List..."}));
    EXPECT_EQ(m_progress.Maximum, 5);
    EXPECT_EQ(m_progress.Values, (QList<int>{0, 1, 2, 3, 4, 5}));

    m_choices.Method = ExportMethod::GameFolder;
    m_choices.Filter = TempPath("Games In The SECOND Folder");
    m_choices.SortKey = "File Size";
    WriteColumns({"Filename", "File Size", "Folder", "Caption"});
    const QString folder = TempPath("games in the second folder/").toLower();
    EXPECT_EQ(Export(),
              Lines({"Filename                      Size      Folder                        "
                     "Caption                       ",
                     QString(100, '-'),
                     "chrono.smc                       0K     " + folder +
                         "Chrono Saga: The Very Long Caption",
                     "pilotwings.swc                   1K     " + folder +
                         "Pilotwings                    ",
                     "tom & jerry.fig                  4K     " + folder +
                         "Tom & Jerry <script>          "}) +
                  Footer(3, "File Size"));

    m_choices.Method = ExportMethod::Group;
    m_choices.Filter = "rpg";
    WriteColumns({"Caption", "File Size", "Group"});
    const QString title = "Caption                       Size      Group               ";
    EXPECT_EQ(Export(), Lines({title, QString(60, '-'),
                               "Chrono Saga: The Very Long Caption   0K     RPG                 ",
                               "Pilotwings                       1K     RPG                 ",
                               "Mario Kart                      40K     rpg                 "}) +
                            Footer(3, "File Size"));

    m_choices.Method = ExportMethod::FilePattern;
    m_choices.Filter = "*.S?C";
    m_choices.SortKey = "Caption";
    EXPECT_EQ(Export(), Lines({title, QString(60, '-'),
                               "Chrono Saga: The Very Long Caption   0K     RPG                 ",
                               "Pilotwings                       1K     RPG                 ",
                               "Zelda Quest                      2K     Action              "}) +
                            Footer(3, "Caption"));
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
    EXPECT_EQ(m_progress.Labels.last(), "Exporting Game List in HTML...");

    const ParsedPage page = ParseHtml(bytes);
    EXPECT_EQ(page.Errors, QStringList());
    EXPECT_EQ(page.RowColours,
              (QStringList{"#E4E4E4", "#F0F0F0", "#F9F9F9", "#F0F0F0", "#F9F9F9", "#F0F0F0"}));
    EXPECT_EQ(page.Rows,
              (QList<QStringList>{{"Caption", "Size", "Type"},
                                  {"Chrono Saga: The Very Long Caption", "0K", "Super Magicom"},
                                  {"Pilotwings \"é\" ★ </td></tr>", "1K", "Super WildCard"},
                                  {"Zelda Quest", "2K", "Super Famicon"},
                                  {"Tom & Jerry <script>", "4K", "FIG File"},
                                  {"Mario Kart", "40K", "Zip Compressed"}}));
    EXPECT_EQ(page.Link, m_choices.ProductLink);
}

TEST_F(ExportWriterTest, AGameFileThatVanishedFailsTheExportAndLeavesTheTargetAlone) {
    const QString target = WriteFile("gamelist.txt", "the last export");
    QFile::remove(TempPath("Games In The Second Folder/pilotwings.swc"));
    QString reason;
    EXPECT_FALSE(WriteGameListExport(m_state.Games, m_choices, target, m_progress, &reason));
    EXPECT_TRUE(reason.endsWith("games in the second folder/pilotwings.swc"))
        << reason.toStdString();
    EXPECT_EQ(ReadFile(target), "the last export");

    m_choices.Method = ExportMethod::Group; // a filter that leaves the missing game out
    m_choices.Filter = "ACTION";
    EXPECT_TRUE(Export().startsWith("Caption"));
    EXPECT_TRUE(Export("no such folder/list.txt").startsWith("failed: "));
}

TEST_F(ExportWriterTest, AFullDiskLeavesTheOldFileWholeAndSaysWhy) {
    const QString target = WriteFile("gamelist.txt", "the last export");
    QString reason;
    {
        const FileSizeLimit fullDisk(8);
        EXPECT_FALSE(WriteGameListExport(m_state.Games, m_choices, target, m_progress, &reason));
    }
    EXPECT_EQ(reason, "File too large");
    EXPECT_EQ(ReadFile(target), "the last export");
    EXPECT_EQ(QDir(TempPath()).entryList(QDir::Files), QStringList("gamelist.txt"));
}

TEST(FilePattern, MatchesWildcardsWithoutRegardToCase) {
    EXPECT_TRUE(MatchesFilePattern("super mario world.smc", "*.SMC"));
    EXPECT_TRUE(MatchesFilePattern("a.b.c", "a*c"));
    EXPECT_TRUE(MatchesFilePattern("game.1", "*.?"));
    EXPECT_TRUE(MatchesFilePattern("[x].sfc", "[x]*"));
    EXPECT_FALSE(MatchesFilePattern("game.sfc.zip", "*.sfc"));
    EXPECT_FALSE(MatchesFilePattern("x.smc", "?.s?"));
    EXPECT_FALSE(MatchesFilePattern("", "?"));
    EXPECT_TRUE(MatchesFilePattern("", "**"));
}

} // namespace
