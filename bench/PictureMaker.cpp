// Writes a picture of noise, which no encoder can shrink, for the window's timing with
// a huge snapshot.
//
//   lumbra-bench-picture PATH WIDTH HEIGHT
#include <QGuiApplication>
#include <QImage>
#include <QRandomGenerator>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: lumbra-bench-picture PATH WIDTH HEIGHT\n", stderr);
        return 2;
    }
    QImage picture(QString::fromLocal8Bit(argv[2]).toInt(), QString::fromLocal8Bit(argv[3]).toInt(),
                   QImage::Format_RGB32);
    QRandomGenerator noise(18);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<quint32*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            line[x] = noise.generate() | 0xff000000u;
    }
    return picture.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
