#include "control/modQuiver.h"

#include <QtCore/QtEndian>
#include <QtTest/QTest>

// The built-in header click compiled into the library: RIFF WAVE, PCM, mono,
// 22,050 Hz, 16 bits; a LIST chunk between "fmt " and "data".
class tst_FolderSound : public QObject
{
    Q_OBJECT

private slots:
    void fields_data();
    void fields();
    void isAClick();
};

void tst_FolderSound::fields_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("bytes");

    auto u16 = [](quint16 v) {
        QByteArray b(2, 0);
        qToLittleEndian(v, b.data());
        return b;
    };
    auto u32 = [](quint32 v) {
        QByteArray b(4, 0);
        qToLittleEndian(v, b.data());
        return b;
    };
    QTest::newRow("RIFF") << 0 << QByteArray("RIFF") + u32(9450) + "WAVE";
    QTest::newRow("fmt chunk") << 12 << QByteArray("fmt ") + u32(16);
    QTest::newRow("PCM, one channel") << 20 << u16(1) + u16(1);
    QTest::newRow("rates") << 24 << u32(22050) + u32(44100);
    QTest::newRow("block align, bits") << 32 << u16(2) + u16(16);
    QTest::newRow("LIST chunk") << 36 << QByteArray("LIST") + u32(140) + "INFO";
    QTest::newRow("data chunk") << 184 << QByteArray("data") + u32(9266);
}

void tst_FolderSound::fields()
{
    QFETCH(int, offset);
    QFETCH(QByteArray, bytes);
    const QByteArray wave = OrrinQuiver::modQuiver::folderSound();
    QCOMPARE(wave.size(), 9458);
    QCOMPARE(wave.mid(offset, bytes.size()).toHex(' '), bytes.toHex(' '));
}

void tst_FolderSound::isAClick()
{
    // A sharp start that dies away to silence well before the end.
    const QByteArray wave = OrrinQuiver::modQuiver::folderSound();
    auto sample = [&](int i) { return std::abs(qFromLittleEndian<qint16>(wave.constData() + 192 + 2 * i)); };
    int loudest = 0;
    for (int i = 0; i < 441; ++i)
        loudest = std::max(loudest, sample(i));
    QVERIFY(loudest > 16000);
    for (int i = 4633 - 441; i < 4633; ++i)
        QCOMPARE(sample(i), 0);
}

QTEST_MAIN(tst_FolderSound)
#include "tst_foldersound.moc"
