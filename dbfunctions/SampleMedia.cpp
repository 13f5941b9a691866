#include "SampleMedia.h"

#include <QFile>
#include <QImage>
#include <QtMath>

namespace {

QRgb Blend(QRgb a, QRgb b, double t) {
    t = qBound(0.0, t, 1.0);
    return qRgb(int(qRed(a) + (qRed(b) - qRed(a)) * t),
                int(qGreen(a) + (qGreen(b) - qGreen(a)) * t),
                int(qBlue(a) + (qBlue(b) - qBlue(a)) * t));
}

// A sky from deep blue to gold with a low sun.
QRgb Sunrise(int x, int y, int w, int h) {
    const double t = double(y) / h;
    QRgb sky = Blend(qRgb(20, 30, 90), qRgb(250, 180, 80), t);
    const double dx = x - w * 0.5, dy = y - h * 0.78;
    const double d = qSqrt(dx * dx + dy * dy) / (h * 0.18);
    if (d < 1.0)
        sky = Blend(qRgb(255, 240, 190), sky, d * d);
    if (y > h * 0.8)
        sky = Blend(qRgb(40, 50, 40), qRgb(20, 25, 20), (y - h * 0.8) / (h * 0.2));
    return sky;
}

// A light cross on a dark purple ground.
QRgb Cross(int x, int y, int w, int h) {
    const bool upright = qAbs(x - w / 2) < w / 28 && y > h / 8 && y < h * 7 / 8;
    const bool beam = qAbs(y - h * 3 / 8) < w / 28 && qAbs(x - w / 2) < w / 6;
    if (upright || beam)
        return qRgb(250, 245, 230);
    const double dx = x - w / 2.0, dy = y - h * 3 / 8.0;
    return Blend(qRgb(120, 80, 160), qRgb(30, 10, 50), qSqrt(dx * dx + dy * dy) / w);
}

// A window of coloured panes with lead lines.
QRgb Window(int x, int y, int w, int h) {
    const int pane = qMax(8, w / 16);
    if (x % pane < 2 || y % pane < 2)
        return qRgb(30, 30, 30);
    static const QRgb colours[] = {qRgb(180, 30, 40), qRgb(30, 70, 170), qRgb(230, 180, 40),
                                   qRgb(40, 140, 70), qRgb(120, 40, 140)};
    const int index = ((x / pane) * 7 + (y / pane) * 3 + (x / pane) * (y / pane)) % 5;
    const double glow = 1.0 - 0.4 * qAbs(double(x) / w - 0.5) - 0.3 * qAbs(double(y) / h - 0.5);
    const QRgb c = colours[index];
    return qRgb(int(qRed(c) * glow), int(qGreen(c) * glow), int(qBlue(c) * glow));
}

void PutLe(QByteArray& bytes, quint32 value, int size) {
    for (int i = 0; i < size; ++i)
        bytes.append(char((value >> (8 * i)) & 0xFF));
}

} // namespace

bool SampleMedia::WritePicture(const QString& strPath, const QString& kind) {
    const int w = 640, h = 360;
    QImage image(w, h, QImage::Format_RGB32);
    QRgb (*const pixel)(int, int, int, int) = kind == QLatin1String("cross")    ? Cross
                                              : kind == QLatin1String("window") ? Window
                                                                                : Sunrise;
    for (int y = 0; y < h; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < w; ++x)
            line[x] = pixel(x, y, w, h);
    }
    return image.save(strPath);
}

bool SampleMedia::WriteOldHundredth(const QString& strPath) {
    // "All people that on earth do dwell": G G F# E D G A B, B B B A G C B A (in G).
    struct Note {
        double hz;
        double beats;
    };
    const double G = 392.00, Fs = 369.99, E = 329.63, D = 293.66, A = 440.00, B = 493.88,
                 C = 523.25;
    const Note tune[] = {{G, 2}, {G, 1}, {Fs, 1}, {E, 1}, {D, 1}, {G, 1}, {A, 1}, {B, 2},
                         {B, 2}, {B, 1}, {B, 1},  {A, 1}, {G, 1}, {C, 1}, {B, 1}, {A, 2}};
    const int rate = 22050;
    const double beat = 0.42;
    QByteArray samples;
    for (const Note& note : tune) {
        const int count = int(note.beats * beat * rate);
        for (int i = 0; i < count; ++i) {
            const double t = double(i) / rate;
            const double envelope = qMin(1.0, i / 400.0) * qMin(1.0, (count - i) / 800.0);
            const double wave = qSin(2 * M_PI * note.hz * t) + 0.5 * qSin(4 * M_PI * note.hz * t) +
                                0.25 * qSin(2 * M_PI * note.hz * 0.5 * t);
            PutLe(samples, quint32(qint16(wave * envelope * 7000)) & 0xFFFF, 2);
        }
    }
    QByteArray file("RIFF");
    PutLe(file, 36 + samples.size(), 4);
    file.append("WAVEfmt ");
    PutLe(file, 16, 4);
    PutLe(file, 1, 2); // PCM
    PutLe(file, 1, 2); // mono
    PutLe(file, rate, 4);
    PutLe(file, rate * 2, 4); // bytes per second
    PutLe(file, 2, 2);        // block align
    PutLe(file, 16, 2);       // bits per sample
    file.append("data");
    PutLe(file, samples.size(), 4);
    file.append(samples);
    QFile out(strPath);
    return out.open(QIODevice::WriteOnly) && out.write(file) == file.size();
}
