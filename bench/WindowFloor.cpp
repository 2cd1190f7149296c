// The toolkit's floor for Lumbra's main window: a QMainWindow that holds a
// QListWidget of 1,000 lines, and nothing else. bench/run.sh times it from exec
// to its window mapped, beside the real program.
//
//   lumbra-floor-window   shows the window, titled "Qt Floor", until it is closed
#include <QApplication>
#include <QListWidget>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QStringList lines;
    lines.reserve(1000);
    for (int i = 0; i < 1000; ++i)
        lines.append(QStringLiteral("BENCH GAME %1").arg(i));

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Qt Floor"));
    auto* list = new QListWidget(&window);
    list->addItems(lines);
    window.setCentralWidget(list);
    window.show();
    return QApplication::exec();
}
