#include "control/modQuiver.h"

#include <QtCore/QtEndian>
#include <QtTest/QTest>

#include <algorithm>

// The built-in header click is compiled into the library as a resource.
class tst_FolderSound : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fields_data();
    void fields();
    void isAClick();

private:
    // Offset of the payload of the first chunk with `tag` after the WAVE id; -1 when missing.
    qsizetype chunk(QByteArrayView tag) const;
    quint32 u32(qsizetype at) const { return qFromLittleEndian<quint32>(m_wave.constData() + at); }
    quint16 u16(qsizetype at) const { return qFromLittleEndian<quint16>(m_wave.constData() + at); }

    QByteArray m_wave;
};

qsizetype tst_FolderSound::chunk(QByteArrayView tag) const
{
    for (qsizetype at = 12; at + 8 <= m_wave.size(); at += 8 + ((u32(at + 4) + 1) & ~1u)) {
        if (QByteArrayView(m_wave).sliced(at, 4) == tag)
            return at + 8;
    }
    return -1;
}

void tst_FolderSound::initTestCase()
{
    m_wave = OrrinQuiver::modQuiver::folderSound();
    QCOMPARE(m_wave.size(), 9458);
    QVERIFY(chunk("fmt ") > 0);
    QVERIFY(chunk("data") > 0);
}

void tst_FolderSound::fields_data()
{
    QTest::addColumn<QByteArray>("chunkTag");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("size");
    QTest::addColumn<quint32>("expected");

    QTest::newRow("RIFF size") << QByteArray() << 4 << 4 << 9450u;
    QTest::newRow("format tag PCM") << QByteArray("fmt ") << 0 << 2 << 1u;
    QTest::newRow("one channel") << QByteArray("fmt ") << 2 << 2 << 1u;
    QTest::newRow("sample rate") << QByteArray("fmt ") << 4 << 4 << 22050u;
    QTest::newRow("byte rate") << QByteArray("fmt ") << 8 << 4 << 44100u;
    QTest::newRow("block align") << QByteArray("fmt ") << 12 << 2 << 2u;
    QTest::newRow("bits per sample") << QByteArray("fmt ") << 14 << 2 << 16u;
    QTest::newRow("fmt chunk size") << QByteArray("fmt ") << -4 << 4 << 16u;
    QTest::newRow("data size") << QByteArray("data") << -4 << 4 << 9266u;
}

void tst_FolderSound::fields()
{
    QFETCH(QByteArray, chunkTag);
    QFETCH(int, offset);
    QFETCH(int, size);
    QFETCH(quint32, expected);

    QVERIFY(m_wave.startsWith("RIFF"));
    QCOMPARE(m_wave.mid(8, 4), QByteArray("WAVE"));
    const qsizetype at = (chunkTag.isEmpty() ? 0 : chunk(chunkTag)) + offset;
    QCOMPARE(size == 2 ? u16(at) : u32(at), expected);
}

void tst_FolderSound::isAClick()
{
    // The data runs to the end of the file: a sharp start that dies away to silence.
    const qsizetype data = chunk("data");
    QCOMPARE(data + 9266, m_wave.size());
    const auto sample = [&](qsizetype i) { return std::abs(qint16(u16(data + 2 * i))); };
    int loudEarly = 0;
    for (qsizetype i = 0; i < 441; ++i)
        loudEarly = std::max(loudEarly, sample(i));
    QVERIFY(loudEarly > 16000);
    for (qsizetype i = 4633 - 441; i < 4633; ++i)
        QCOMPARE(sample(i), 0);
}

QTEST_MAIN(tst_FolderSound)
#include "tst_foldersound.moc"
