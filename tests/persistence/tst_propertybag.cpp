#include "serialize/FormPropertyBag.h"
#include "serialize/MemoryPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QFont>
#include <QtTest/QTest>

#include <memory>

using namespace OrrinQuiver;
using namespace Qt::StringLiterals;

namespace {

QVariant integer(int v)
{
    return QVariant::fromValue(qint16(v));
}

QFont sampleFont()
{
    QFont font(u"DejaVu Sans"_s, 11);
    font.setItalic(true);
    return font;
}

// Values of every plain type, with the texts that backends find awkward.
QList<std::pair<QString, QVariant>> sampleValues()
{
    return {
        {u"Flag"_s, true},
        {u"Off"_s, false},
        {u"Style"_s, integer(-32768)},
        {u"BackColor"_s, qint32(0x80000010u)},
        {u"Caption1"_s, u"Mail, Calendar; Notes"_s},
        {u"Tag1"_s, u"a=b\\c\nnext\r\tend\x01"_s},
        {u"ToolTip1"_s, u"  padded  "_s},
        {u"Caption2"_s, u"@at and \"quotes\" and \u00e9\u4e2d"_s},
        {u"Caption3"_s, u"True"_s},
        {u"Font"_s, sampleFont()},
    };
}

} // namespace

class tst_PropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void readConverts_data();
    void readConverts();
    void writeSkipsDefaults_data();
    void writeSkipsDefaults();
    void roundTrip_data();
    void roundTrip();
    void formText();
    void formTextParsing_data();
    void formTextParsing();
    void settingsGroup();

private:
    QTemporaryDir m_dir;
};

void tst_PropertyBag::readConverts_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("bool from text") << QVariant(u"TRUE"_s) << QVariant(false) << QVariant(true);
    QTest::newRow("bool from number") << QVariant(-1.0) << QVariant(false) << QVariant(true);
    QTest::newRow("bool from zero text") << QVariant(u"0"_s) << QVariant(true) << QVariant(false);
    QTest::newRow("bool garbage") << QVariant(u"yes"_s) << QVariant(true) << QVariant(true);
    QTest::newRow("integer from text") << QVariant(u"120"_s) << integer(7) << integer(120);
    QTest::newRow("integer overflow") << QVariant(40000) << integer(7) << integer(7);
    QTest::newRow("integer fraction") << QVariant(1.5) << integer(7) << integer(7);
    QTest::newRow("integer from bool") << QVariant(true) << integer(7) << integer(7);
    QTest::newRow("long negative colour") << QVariant(u"-2147483632"_s) << QVariant(0) << QVariant(-2147483632);
    QTest::newRow("long unsigned spelling") << QVariant(2147483664.0) << QVariant(0) << QVariant(-2147483632);
    QTest::newRow("long too big") << QVariant(u"4294967296"_s) << QVariant(3) << QVariant(3);
    QTest::newRow("long hex garbage") << QVariant(u"&H8000000F"_s) << QVariant(3) << QVariant(3);
    QTest::newRow("text from number") << QVariant(5) << QVariant(u""_s) << QVariant(u"5"_s);
    QTest::newRow("text from list") << QVariant(QStringList{u"a"_s}) << QVariant(u"d"_s) << QVariant(u"d"_s);
    QTest::newRow("text from map") << QVariant(QVariantMap{}) << QVariant(u"d"_s) << QVariant(u"d"_s);
    QTest::newRow("font from text") << QVariant(sampleFont().toString()) << QVariant(QFont())
                                    << QVariant(sampleFont());
    QTest::newRow("font garbage") << QVariant(u"Arial"_s) << QVariant(sampleFont()) << QVariant(sampleFont());
    QTest::newRow("font from number") << QVariant(12) << QVariant(sampleFont()) << QVariant(sampleFont());
    QTest::newRow("no default gives raw") << QVariant(u"x"_s) << QVariant() << QVariant(u"x"_s);
}

void tst_PropertyBag::readConverts()
{
    QFETCH(QVariant, stored);
    QFETCH(QVariant, defaultValue);
    QFETCH(QVariant, expected);

    const MemoryPropertyBag bag(QVariantMap{{u"Key"_s, stored}});
    const QVariant read = bag.ReadProperty(u"Key"_s, defaultValue);
    QCOMPARE(read.typeId(), expected.typeId());
    QCOMPARE(read, expected);
    QCOMPARE(bag.ReadProperty(u"key"_s, defaultValue), defaultValue); // names are case-sensitive
}

void tst_PropertyBag::writeSkipsDefaults_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("stored");

    QTest::newRow("equal long") << QVariant(0xC0C0C0) << QVariant(0xC0C0C0) << false;
    QTest::newRow("integer against long") << integer(3) << QVariant(3) << false;
    QTest::newRow("colour as unsigned") << QVariant(0x80000010u) << QVariant(qint32(0x80000010u)) << false;
    QTest::newRow("equal font") << QVariant(sampleFont()) << QVariant(sampleFont()) << false;
    QTest::newRow("other font") << QVariant(QFont(u"DejaVu Serif"_s, 11)) << QVariant(sampleFont()) << true;
    QTest::newRow("different") << QVariant(true) << QVariant(false) << true;
    QTest::newRow("no default") << QVariant(u""_s) << QVariant() << true;
    QTest::newRow("empty text against empty") << QVariant(u""_s) << QVariant(u""_s) << false;
}

void tst_PropertyBag::writeSkipsDefaults()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, defaultValue);
    QFETCH(bool, stored);

    MemoryPropertyBag bag;
    bag.WriteProperty(u"Old"_s, 1);
    bag.WriteProperty(u"Key"_s, u"earlier"_s);
    bag.WriteProperty(u"Key"_s, value, defaultValue);
    // A value at its default also drops what an earlier save left there.
    QCOMPARE(bag.names(), stored ? QStringList({u"Old"_s, u"Key"_s}) : QStringList({u"Old"_s}));
}

void tst_PropertyBag::roundTrip_data()
{
    QTest::addColumn<QString>("backend");
    QTest::newRow("memory") << u"memory"_s;
    QTest::newRow("form text") << u"form"_s;
    QTest::newRow("ini file") << u"ini"_s;
}

void tst_PropertyBag::roundTrip()
{
    QFETCH(QString, backend);

    const QString file = m_dir.filePath(QTest::currentDataTag() + u".ini"_s);
    MemoryPropertyBag memory;
    FormPropertyBag form;
    auto settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
    SettingsPropertyBag ini(*settings, u"Quiver1"_s);
    PropertyBag &writer = backend == u"memory" ? static_cast<PropertyBag &>(memory)
        : backend == u"form"                   ? static_cast<PropertyBag &>(form)
                                               : static_cast<PropertyBag &>(ini);
    for (const auto &[name, value] : sampleValues())
        writer.WriteProperty(name, value);

    // Read back from a fresh bag made from what the backend keeps.
    std::unique_ptr<PropertyBag> reader;
    if (backend == u"memory") {
        reader = std::make_unique<MemoryPropertyBag>(memory.toVariantMap());
    } else if (backend == u"form") {
        reader = std::make_unique<FormPropertyBag>(form.text());
    } else {
        settings->sync();
        QCOMPARE(settings->status(), QSettings::NoError);
        settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
        reader = std::make_unique<SettingsPropertyBag>(*settings, u"Quiver1"_s);
    }
    const auto values = sampleValues();
    QCOMPARE(reader->names().size(), values.size());
    for (const auto &[name, value] : values) {
        const QVariant wrongType = value.typeId() == QMetaType::QString ? QVariant(u"?"_s) : value;
        const QVariant defaultValue = name == u"Font" ? QVariant(QFont()) : wrongType;
        QCOMPARE(reader->ReadProperty(name, defaultValue.typeId() == QMetaType::Bool ? QVariant(!value.toBool())
                                                                                     : defaultValue),
                 value);
    }
}

void tst_PropertyBag::formText()
{
    FormPropertyBag bag;
    bag.WriteProperty(u"Style"_s, integer(2), integer(0));
    bag.WriteProperty(u"PlaySounds"_s, false, true);
    bag.WriteProperty(u"ShowToolTips"_s, true, true);
    bag.WriteProperty(u"Caption1"_s, u"a=b\\\n\t\x7f\x1f"_s);
    QCOMPARE(bag.text(), u"Style=2\nPlaySounds=False\nCaption1=a=b\\\\\\n\\t\x7f\\x1f\n"_s);
}

void tst_PropertyBag::formTextParsing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("caption");

    QTest::newRow("windows line ends") << u"Caption1=x\r\nNumHeaders=1\r\n"_s
                                       << QStringList{u"Caption1"_s, u"NumHeaders"_s} << u"x"_s;
    QTest::newRow("lines without a name") << u"junk\n=orphan\n\nCaption1=y"_s << QStringList{u"Caption1"_s}
                                          << u"y"_s;
    QTest::newRow("last value wins") << u"Caption1=a\nTag1=t\nCaption1=b\n"_s
                                     << QStringList{u"Caption1"_s, u"Tag1"_s} << u"b"_s;
    QTest::newRow("odd escapes") << u"Caption1=\\q\\x4\\xZZ\\x41\\"_s << QStringList{u"Caption1"_s}
                                 << u"qx4xZZA\\"_s;
}

void tst_PropertyBag::formTextParsing()
{
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    QFETCH(QString, caption);

    const FormPropertyBag bag(text);
    QCOMPARE(bag.names(), names);
    QCOMPARE(bag.ReadProperty(u"Caption1"_s, u""_s).toString(), caption);
}

void tst_PropertyBag::settingsGroup()
{
    QSettings settings(m_dir.filePath(u"groups.ini"_s), QSettings::IniFormat);
    SettingsPropertyBag first(settings, u"Quiver1"_s);
    SettingsPropertyBag second(settings, u"Quiver2"_s);
    first.WriteProperty(u"Caption1"_s, u"one"_s);
    first.WriteProperty(u"caption1"_s, u"lower"_s);
    second.WriteProperty(u"NumHeaders"_s, integer(2), integer(0));
    second.WriteProperty(u"Style"_s, integer(0), integer(0));

    QCOMPARE(first.names(), QStringList({u"Caption1"_s, u"caption1"_s}));
    QCOMPARE(second.names(), QStringList{u"NumHeaders"_s});
    QCOMPARE(first.ReadProperty(u"NumHeaders"_s, integer(0)), integer(0));
    QCOMPARE(second.ReadProperty(u"NumHeaders"_s, integer(0)), integer(2));
}

QTEST_MAIN(tst_PropertyBag)
#include "tst_propertybag.moc"
