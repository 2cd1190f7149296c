// The start-up floor of any Qt program: a QCoreApplication made and ended, with
// nothing else. bench/run.sh times it beside the plain C++ floor's start-up, to
// show how much of lumbra-cli's start-up every Qt process pays.
#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return 0;
}
