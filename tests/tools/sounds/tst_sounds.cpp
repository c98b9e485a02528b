#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

constexpr double kFullScale = 32768.0;
constexpr int kRate = 44100;

const QStringList kFiles{"marel001.wav", "marel002.wav", "marel007.wav",
                         "marel008.wav", "marel009.wav", "marel010.wav"};

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray shipped(const QString &name)
{
    return readAll(QStringLiteral(SOUNDS_DIR "/") + name);
}

uint32_t field(const QByteArray &bytes, int offset, int size)
{
    uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i) value = (value << 8) | static_cast<uint8_t>(bytes[offset + i]);
    return value;
}

// The samples of a 16-bit mono file with a 44-byte header, as fractions of full scale.
std::vector<double> samplesOf(const QByteArray &bytes)
{
    std::vector<double> samples;
    for (int at = 44; at + 1 < bytes.size(); at += 2)
        samples.push_back(static_cast<int16_t>(field(bytes, at, 2)) / kFullScale);
    return samples;
}

double rms(const std::vector<double> &s, size_t from, size_t to)
{
    double sum = 0.0;
    for (size_t i = from; i < to; ++i) sum += s[i] * s[i];
    return to > from ? std::sqrt(sum / static_cast<double>(to - from)) : 0.0;
}

double peak(const std::vector<double> &s)
{
    double loudest = 0.0;
    for (double v : s) loudest = std::max(loudest, std::fabs(v));
    return loudest;
}

// Swings from one side of silence to the other per second, ignoring wiggles quieter than a
// twentieth of the peak: a rough measure of pitch that faint noise does not drown.
double crossingRate(const std::vector<double> &s, size_t from, size_t to)
{
    const double threshold = 0.05 * peak(s);
    int swings = 0;
    int side = 0;
    for (size_t i = from; i < to; ++i) {
        const int now = s[i] > threshold ? 1 : (s[i] < -threshold ? -1 : 0);
        if (now == 0 || now == side) continue;
        if (side != 0) ++swings;
        side = now;
    }
    return swings * static_cast<double>(kRate) / static_cast<double>(to - from);
}

std::vector<double> cue(const QString &name)
{
    return samplesOf(shipped(name));
}

} // namespace

class TestSounds : public QObject {
    Q_OBJECT

private slots:
    void eachFileIsAPlayableCue_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("shortest");
        QTest::addColumn<double>("longest");
        QTest::newRow("win fanfare") << "marel001.wav" << 1.2 << 1.8;
        QTest::newRow("level chime") << "marel002.wav" << 0.4 << 0.7;
        QTest::newRow("take back") << "marel007.wav" << 0.15 << 0.3;
        QTest::newRow("dialog opens") << "marel008.wav" << 0.2 << 0.35;
        QTest::newRow("button click") << "marel009.wav" << 0.05 << 0.1;
        QTest::newRow("board click") << "marel010.wav" << 0.06 << 0.12;
    }

    void eachFileIsAPlayableCue()
    {
        QFETCH(QString, name);
        QFETCH(double, shortest);
        QFETCH(double, longest);
        const QByteArray bytes = shipped(name);
        QVERIFY2(bytes.size() > 44, qPrintable(name + " is missing or empty"));

        // A canonical header whose sizes agree with the file's.
        QCOMPARE(bytes.left(4), QByteArray("RIFF"));
        QCOMPARE(field(bytes, 4, 4), static_cast<uint32_t>(bytes.size() - 8));
        QCOMPARE(bytes.mid(8, 8), QByteArray("WAVEfmt "));
        QCOMPARE(field(bytes, 16, 4), 16u);
        QCOMPARE(field(bytes, 20, 2), 1u); // PCM
        const uint32_t channels = field(bytes, 22, 2);
        QCOMPARE(channels, 1u);
        QCOMPARE(field(bytes, 24, 4), static_cast<uint32_t>(kRate));
        QCOMPARE(field(bytes, 28, 4), kRate * channels * 2);
        QCOMPARE(field(bytes, 32, 2), channels * 2);
        QCOMPARE(field(bytes, 34, 2), 16u);
        QCOMPARE(bytes.mid(36, 4), QByteArray("data"));
        QCOMPARE(field(bytes, 40, 4), static_cast<uint32_t>(bytes.size() - 44));
        QCOMPARE(bytes.size() % 2, 0);

        const std::vector<double> s = samplesOf(bytes);
        const double seconds = static_cast<double>(s.size()) / kRate;
        QVERIFY2(seconds >= shortest && seconds <= longest, qPrintable(QString::number(seconds)));

        // Loud enough to hear, with headroom to spare: the loudest sample sits near -3 dBFS.
        QVERIFY2(rms(s, 0, s.size()) > 0.03, qPrintable(QString::number(rms(s, 0, s.size()))));
        QVERIFY(peak(s) > 0.5);
        QVERIFY(peak(s) < 0.9);

        // No click on starting or stopping: both ends fade to silence.
        QVERIFY(std::fabs(s.front()) < 0.005);
        QVERIFY(std::fabs(s.back()) < 0.005);
        const size_t edge = kRate / 4000;
        for (size_t i = 0; i < edge; ++i) {
            QVERIFY2(std::fabs(s[i]) < 0.1 * peak(s), qPrintable("abrupt start at sample " + QString::number(i)));
            QVERIFY2(std::fabs(s[s.size() - 1 - i]) < 0.1 * peak(s), qPrintable("abrupt end, sample " + QString::number(i)));
        }
    }

    void cuesSoundDifferent()
    {
        for (int a = 0; a < kFiles.size(); ++a)
            for (int b = a + 1; b < kFiles.size(); ++b) {
                const std::vector<double> x = cue(kFiles[a]);
                const std::vector<double> y = cue(kFiles[b]);
                const size_t common = std::min(x.size(), y.size());
                double xy = 0.0;
                double xx = 0.0;
                double yy = 0.0;
                for (size_t i = 0; i < common; ++i) {
                    xy += x[i] * y[i];
                    xx += x[i] * x[i];
                    yy += y[i] * y[i];
                }
                const double likeness = std::fabs(xy) / std::sqrt(xx * yy);
                QVERIFY2(likeness < 0.5, qPrintable(kFiles[a] + " resembles " + kFiles[b]));
            }
    }

    void cuesHaveTheirCharacter()
    {
        // The take-back falls in pitch, the dialog cue rises.
        const std::vector<double> back = cue("marel007.wav");
        QVERIFY(crossingRate(back, 0, back.size() / 2) > 1.3 * crossingRate(back, back.size() / 2, back.size()));
        const std::vector<double> open = cue("marel008.wav");
        QVERIFY(crossingRate(open, 0, open.size() / 2) * 1.3 < crossingRate(open, open.size() / 2, open.size()));

        // The knock on the board is much lower than the click of a button.
        const std::vector<double> button = cue("marel009.wav");
        const std::vector<double> board = cue("marel010.wav");
        QVERIFY(crossingRate(board, 0, board.size()) * 3 < crossingRate(button, 0, button.size()));

        // The fanfare's chord is still sounding well after the arpeggio.
        const std::vector<double> fanfare = cue("marel001.wav");
        const size_t window = kRate / 20;
        double loudestWindow = 0.0;
        for (size_t at = 0; at + window <= fanfare.size(); at += window)
            loudestWindow = std::max(loudestWindow, rms(fanfare, at, at + window));
        const size_t held = kRate; // one second in
        QVERIFY(rms(fanfare, held, held + window) > 0.25 * loudestWindow);
    }

    void generatorRebuildsTheShippedFiles()
    {
        QTemporaryDir scratch;
        QVERIFY(scratch.isValid());
        const QString folder = scratch.filePath("out");
        QProcess generator;
        generator.start(QStringLiteral(GENERATE_SOUNDS), {folder});
        QVERIFY(generator.waitForFinished(60000));
        QCOMPARE(generator.exitStatus(), QProcess::NormalExit);
        QCOMPARE(generator.exitCode(), 0);

        QDir written(folder);
        QCOMPARE(written.entryList(QDir::Files, QDir::Name), kFiles);
        for (const QString &name : kFiles)
            QVERIFY2(readAll(written.filePath(name)) == shipped(name), qPrintable(name + " differs"));
    }

    void generatorWithoutFolderFails()
    {
        QProcess generator;
        generator.start(QStringLiteral(GENERATE_SOUNDS), {});
        QVERIFY(generator.waitForFinished(60000));
        QVERIFY(generator.exitCode() != 0);
    }
};

QTEST_GUILESS_MAIN(TestSounds)
#include "tst_sounds.moc"
