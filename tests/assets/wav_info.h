#pragma once

// Qt
#include <QByteArray>
#include <QString>
#include <QVector>

// What the game's sound player relies on in a WAV file, read straight from its bytes.
struct WavInfo {
    bool ok = false;
    QString error;            // why the file was refused, when ok is false
    int format = 0;           // 1 = plain PCM
    int channels = 0;
    int sampleRate = 0;
    int bitsPerSample = 0;
    QVector<qint16> samples;  // the data chunk, for 16-bit files

    double seconds() const;
    double peakDbfs() const;
    double rmsDbfs() const;
    // Loudest sample within the first or last few milliseconds, as a fraction of full
    // scale: a sound that starts or stops at full swing is heard as a click.
    double edgeLevel(double millis) const;
};

WavInfo readWav(const QByteArray &bytes);
