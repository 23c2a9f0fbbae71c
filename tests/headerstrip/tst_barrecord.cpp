#include "control/BarRecord.h"
#include "control/HeaderSound.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_BarRecord : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void write_data();
    void write();
    void sound_data();
    void sound();
};

void tst_BarRecord::read_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("spare");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<int>("number");

    QTest::newRow("empty") << ""
                           << "0"
                           << "0"
                           << "0" << 0;
    QTest::newRow("written") << "3:0;Inbox"
                             << "3"
                             << "0"
                             << "Inbox" << 3;
    QTest::newRow("tip with separators") << "12:0;a;b:c"
                                         << "12"
                                         << "0"
                                         << "a;b:c" << 12;
    QTest::newRow("no separators") << "abc"
                                   << ""
                                   << "abc"
                                   << "" << 0;
    QTest::newRow("no semicolon") << "3:x"
                                  << "3"
                                  << "x"
                                  << "" << 3;
    QTest::newRow("no colon") << "3;tip"
                              << ""
                              << "3"
                              << "tip" << 0;
    QTest::newRow("semicolon first") << "a;b:c"
                                     << "a;b"
                                     << ""
                                     << "b:c" << 0;
    QTest::newRow("index not a number") << "x:0;"
                                        << "x"
                                        << "0"
                                        << "" << 0;
}

void tst_BarRecord::read()
{
    QFETCH(QString, record);
    QFETCH(QString, index);
    QFETCH(QString, spare);
    QFETCH(QString, tip);
    QFETCH(int, number);

    const BarRecord r(record);
    QCOMPARE(r.field(BarRecord::IndexField), index);
    QCOMPARE(r.field(BarRecord::SpareField), spare);
    QCOMPARE(r.field(BarRecord::ToolTipField), tip);
    QCOMPARE(r.field(4), QString());
    QCOMPARE(r.index(), number);
}

void tst_BarRecord::write_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("index into empty") << "" << 1 << "4"
                                      << "4:0;0";
    QTest::newRow("tip into empty") << "" << 3 << "Tip"
                                    << "0:0;Tip";
    QTest::newRow("index kept tip") << "4:0;Tip" << 1 << "12"
                                    << "12:0;Tip";
    QTest::newRow("tip with semicolon") << "4:0;old" << 3 << "a;b"
                                        << "4:0;a;b";
    QTest::newRow("empty tip") << "4:0;old" << 3 << ""
                               << "4:0;";
    QTest::newRow("unknown field") << "4:0;old" << 0 << "x"
                                   << "4:0;old";
}

void tst_BarRecord::write()
{
    QFETCH(QString, record);
    QFETCH(int, field);
    QFETCH(QString, value);
    QFETCH(QString, expected);

    BarRecord r(record);
    r.setField(field, value);
    QCOMPARE(r.text(), expected);
    if (field >= 1 && field <= 3)
        QCOMPARE(r.field(field), value);
}

void tst_BarRecord::sound_data()
{
    QTest::addColumn<bool>("play");
    QTest::addColumn<bool>("system");
    QTest::addColumn<bool>("loaded"); // every source loaded, or none
    QTest::addColumn<int>("clicked");
    QTest::addColumn<int>("open");
    QTest::addColumn<int>("expected");

    QTest::newRow("system, below") << true << true << true << 3 << 1 << int(HeaderSound::BuiltIn);
    QTest::newRow("system, above") << true << true << true << 1 << 3 << int(HeaderSound::BuiltIn);
    QTest::newRow("loaded, below") << true << false << true << 3 << 1 << int(HeaderSound::Up);
    QTest::newRow("loaded, above") << true << false << true << 1 << 3 << int(HeaderSound::Down);
    QTest::newRow("none open yet") << true << false << true << 1 << 0 << int(HeaderSound::Up);
    QTest::newRow("not loaded") << true << false << false << 3 << 1 << int(HeaderSound::None);
    QTest::newRow("built-in missing") << true << true << false << 3 << 1 << int(HeaderSound::None);
    QTest::newRow("already open") << true << true << true << 2 << 2 << int(HeaderSound::None);
    QTest::newRow("sounds off") << false << true << true << 3 << 1 << int(HeaderSound::None);
}

void tst_BarRecord::sound()
{
    QFETCH(bool, play);
    QFETCH(bool, system);
    QFETCH(bool, loaded);
    QFETCH(int, clicked);
    QFETCH(int, open);
    QFETCH(int, expected);

    const HeaderSoundInput input { play, system, loaded, loaded, loaded, clicked, open };
    QCOMPARE(int(chooseHeaderSound(input)), expected);
}

QTEST_APPLESS_MAIN(tst_BarRecord)
#include "tst_barrecord.moc"
