// SPDX-License-Identifier: MIT
#include "file_bytes.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kRate = 44100;

const QStringList kFiles{"marel001.wav", "marel002.wav", "marel007.wav",
                         "marel008.wav", "marel009.wav", "marel010.wav"};

QByteArray shipped(const QString &name) { return readAll(QStringLiteral(SOUNDS_DIR "/") + name); }

// The 44-byte header of a 16-bit mono PCM file of `size` bytes at 44,100 samples a second.
QByteArray canonicalHeader(qsizetype size)
{
    const auto le32 = [](qsizetype v) {
        QByteArray bytes(4, '\0');
        qToLittleEndian(static_cast<quint32>(v), bytes.data());
        return bytes;
    };
    return "RIFF" + le32(size - 8) + "WAVEfmt " + QByteArray::fromHex("100000000100010044ac00008858010002001000")
           + "data" + le32(size - 44);
}

// The samples of a 16-bit mono file with a 44-byte header, as fractions of full scale.
std::vector<double> samplesOf(const QByteArray &bytes)
{
    std::vector<double> samples;
    for (qsizetype at = 44; at + 1 < bytes.size(); at += 2)
        samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + at) / 32768.0);
    return samples;
}

} // namespace

class TestSounds : public QObject {
    Q_OBJECT

private slots:
    // Each cue lasts its own span of seconds: the win fanfare, the level chime, the take-back, the
    // dialog's opening, the button click and the board click.
    void eachFileIsAPlayableCue()
    {
        const double spans[][2] = {{1.2, 1.8}, {0.4, 0.7}, {0.15, 0.3}, {0.2, 0.35}, {0.05, 0.1}, {0.06, 0.12}};
        for (int cue = 0; cue < kFiles.size(); ++cue) {
            const QString &name = kFiles[cue];
            const QByteArray bytes = shipped(name);
            QVERIFY2(bytes.size() > 44, qPrintable(name + " is missing or empty"));
            // A canonical header whose sizes agree with the file's.
            QCOMPARE(bytes.left(44), canonicalHeader(bytes.size()));
            QCOMPARE(bytes.size() % 2, 0);

            const std::vector<double> s = samplesOf(bytes);
            const double seconds = static_cast<double>(s.size()) / kRate;
            QVERIFY2(seconds >= spans[cue][0] && seconds <= spans[cue][1],
                     qPrintable(name + QStringLiteral(" lasts %1 s").arg(seconds)));
            double energy = 0.0, peak = 0.0;
            for (double v : s) energy += v * v, peak = std::max(peak, std::fabs(v));
            // Loud enough to hear, with headroom to spare: the loudest sample sits near -3 dBFS.
            const double rms = std::sqrt(energy / static_cast<double>(s.size()));
            QVERIFY2(rms > 0.03 && peak > 0.5 && peak < 0.9,
                     qPrintable(name + QStringLiteral(": rms %1, peak %2").arg(rms).arg(peak)));
            // No click on starting or stopping: both ends fade to silence.
            QVERIFY2(std::fabs(s.front()) < 0.005 && std::fabs(s.back()) < 0.005, qPrintable(name));
            for (size_t i = 0; i < size_t(kRate / 4000); ++i)
                QVERIFY2(std::max(std::fabs(s[i]), std::fabs(s[s.size() - 1 - i])) < 0.1 * peak,
                         qPrintable(name + ": abrupt edge, sample " + QString::number(i)));
        }
    }

    void cuesSoundDifferent()
    {
        std::vector<std::vector<double>> cues;
        for (const QString &name : kFiles) cues.push_back(samplesOf(shipped(name)));
        for (size_t a = 0; a < cues.size(); ++a)
            for (size_t b = a + 1; b < cues.size(); ++b) {
                double xy = 0.0, xx = 0.0, yy = 0.0;
                for (size_t i = 0; i < std::min(cues[a].size(), cues[b].size()); ++i) {
                    xy += cues[a][i] * cues[b][i];
                    xx += cues[a][i] * cues[a][i];
                    yy += cues[b][i] * cues[b][i];
                }
                QVERIFY2(std::fabs(xy) / std::sqrt(xx * yy) < 0.5, qPrintable(kFiles[a] + " resembles " + kFiles[b]));
            }
    }

    // The generator rebuilds the shipped files byte for byte, and fails without a folder to write to.
    void generatorRebuildsTheShippedFiles()
    {
        QTemporaryDir scratch;
        const QString folder = scratch.filePath("out");
        QProcess generator;
        generator.start(QStringLiteral(GENERATE_SOUNDS), {folder});
        QVERIFY(generator.waitForFinished(60000));
        QVERIFY(generator.exitStatus() == QProcess::NormalExit && generator.exitCode() == 0);
        QDir written(folder);
        QCOMPARE(written.entryList(QDir::Files, QDir::Name), kFiles);
        for (const QString &name : kFiles)
            QVERIFY2(readAll(written.filePath(name)) == shipped(name), qPrintable(name + " differs"));

        generator.start(QStringLiteral(GENERATE_SOUNDS), {});
        QVERIFY(generator.waitForFinished(60000));
        QVERIFY(generator.exitCode() != 0);
    }
};

QTEST_GUILESS_MAIN(TestSounds)
#include "tst_sounds.moc"
