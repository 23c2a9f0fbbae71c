#include "serialize/FormPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"
#include "serialize/modPictureText.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QCursor>
#include <QtGui/QFont>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtTest/QTest>

using namespace OrrinQuiver;
using namespace Qt::StringLiterals;

namespace {

QVariant integer(int v) { return QVariant::fromValue(qint16(v)); }

QFont sampleFont() { return QFont(u"DejaVu Sans"_s, 11, QFont::Normal, true); }

} // namespace

class tst_PropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void readConverts_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QVariant>("defaultValue");
        QTest::addColumn<QVariant>("expected");

        QTest::newRow("bool from text") << QVariant(u"TRUE"_s) << QVariant(false) << QVariant(true);
        QTest::newRow("bool from number") << QVariant(-1.0) << QVariant(false) << QVariant(true);
        QTest::newRow("integer from text") << QVariant(u"120"_s) << integer(7) << integer(120);
        QTest::newRow("integer fraction") << QVariant(1.5) << integer(7) << integer(7);
        QTest::newRow("integer from bool") << QVariant(true) << integer(7) << integer(7);
        QTest::newRow("long signed colour")
            << QVariant(u"-2147483632"_s) << QVariant(0) << QVariant(-2147483632);
        QTest::newRow("long unsigned colour")
            << QVariant(2147483664.0) << QVariant(0) << QVariant(-2147483632);
        QTest::newRow("long too big") << QVariant(u"4294967296"_s) << QVariant(3) << QVariant(3);
        QTest::newRow("text from number") << QVariant(5) << QVariant(u""_s) << QVariant(u"5"_s);
        QTest::newRow("text from list")
            << QVariant(QStringList { u"a"_s }) << QVariant(u"d"_s) << QVariant(u"d"_s);
        QTest::newRow("font from text")
            << QVariant(sampleFont().toString()) << QVariant(QFont()) << QVariant(sampleFont());
        QTest::newRow("font garbage")
            << QVariant(u"Arial"_s) << QVariant(sampleFont()) << QVariant(sampleFont());
        QTest::newRow("no default gives raw") << QVariant(u"x"_s) << QVariant() << QVariant(u"x"_s);
    }
    void readConverts()
    {
        QFETCH(QVariant, stored);
        QFETCH(QVariant, defaultValue);
        QFETCH(QVariant, expected);

        const MemoryPropertyBag bag(QVariantMap { { u"Key"_s, stored } });
        const QVariant read = bag.ReadProperty(u"Key"_s, defaultValue);
        QCOMPARE(read.typeId(), expected.typeId());
        QCOMPARE(read, expected);
        QCOMPARE(bag.ReadProperty(u"key"_s, defaultValue), defaultValue); // names are case-sensitive
    }

    void writeSkipsDefaults()
    {
        MemoryPropertyBag bag;
        bag.WriteProperty(u"Old"_s, u"earlier"_s);
        bag.WriteProperty(u"Colour"_s, 0x80000010u, qint32(0x80000010u));
        bag.WriteProperty(u"Mode"_s, integer(3), 3);
        bag.WriteProperty(u"Font"_s, sampleFont(), sampleFont());
        bag.WriteProperty(u"Flag"_s, true, false);
        bag.WriteProperty(u"Empty"_s, u""_s);
        // A value at its default also drops what an earlier save left there.
        bag.WriteProperty(u"Old"_s, u""_s, u""_s);
        QCOMPARE(bag.names(), QStringList({ u"Flag"_s, u"Empty"_s }));
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::newRow("form text") << u"form"_s;
        QTest::newRow("ini file") << u"ini"_s;
    }
    void roundTrip()
    {
        QFETCH(QString, backend);

        // The texts the backends find awkward, and every plain type.
        const QList<std::pair<QString, QVariant>> values { { u"Flag"_s, false },
                                                           { u"Style"_s, integer(-32768) },
                                                           { u"BackColor"_s, qint32(0x80000010u) },
                                                           { u"Caption1"_s, u"Mail, Calendar; Notes"_s },
                                                           { u"Tag1"_s, u"a=b\\c\nnext\r\tend\x01"_s },
                                                           { u"ToolTip1"_s, u"  padded  "_s },
                                                           { u"Caption2"_s,
                                                             u"@at \"quoted\" \u00e9\u4e2d"_s },
                                                           { u"Caption3"_s, u"True"_s },
                                                           { u"Font"_s, sampleFont() } };
        QTemporaryDir dir;
        const QString file = dir.filePath(u"bag.ini"_s);
        FormPropertyBag form;
        {
            QSettings settings(file, QSettings::IniFormat);
            SettingsPropertyBag ini(settings, u"Quiver1"_s);
            for (const auto &[name, value] : values)
                (backend == u"form" ? static_cast<PropertyBag &>(form) : ini).WriteProperty(name, value);
        }
        QSettings settings(file, QSettings::IniFormat);
        const SettingsPropertyBag ini(settings, u"Quiver1"_s);
        const FormPropertyBag text(form.text());
        const PropertyBag &reader = backend == u"form" ? static_cast<const PropertyBag &>(text) : ini;
        QCOMPARE(reader.names().size(), values.size());
        for (const auto &[name, value] : values)
            QCOMPARE(reader.ReadProperty(name, name == u"Font" ? QVariant(QFont()) : value), value);
        QCOMPARE(SettingsPropertyBag(settings, u"Quiver2"_s).names(), QStringList());
    }

    void formTextParsing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("caption");

        QTest::newRow("windows line ends")
            << u"Caption1=x\r\nN=1\r\n"_s << QStringList { u"Caption1"_s, u"N"_s } << u"x"_s;
        QTest::newRow("lines without a name")
            << u"junk\n=orphan\n\nCaption1=y"_s << QStringList { u"Caption1"_s } << u"y"_s;
        QTest::newRow("last value wins")
            << u"Caption1=a\nT=t\nCaption1=b\n"_s << QStringList { u"Caption1"_s, u"T"_s } << u"b"_s;
        QTest::newRow("odd escapes") << u"Caption1=\\q\\x4\\xZZ\\x41\\"_s << QStringList { u"Caption1"_s }
                                     << u"qx4xZZA\\"_s;
    }
    void formTextParsing()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, names);
        QFETCH(QString, caption);

        const FormPropertyBag bag(text);
        QCOMPARE(bag.names(), names);
        QCOMPARE(bag.ReadProperty(u"Caption1"_s, u""_s).toString(), caption);
    }

    void pictures_data()
    {
        QTest::addColumn<QVariant>("picture");
        QTest::addColumn<QString>("prefix");

        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        QTest::newRow("nothing") << QVariant() << u""_s;
        QTest::newRow("a bitmap is no pointer") << QVariant::fromValue(pixmap) << u""_s;
        QTest::newRow("shape cursor")
            << QVariant::fromValue(QCursor(Qt::PointingHandCursor)) << u"cursor:13"_s;
        QTest::newRow("picture cursor") << QVariant::fromValue(QCursor(pixmap, 3, 5)) << u"cursor:3,5:"_s;
        QTest::newRow("icon") << QVariant::fromValue(QIcon(pixmap)) << u"icon:"_s;
    }
    void pictures()
    {
        QFETCH(QVariant, picture);
        QFETCH(QString, prefix);

        const QString text = modPictureText::pictureToText(picture);
        QVERIFY2(prefix.isEmpty() ? text.isEmpty() : text.startsWith(prefix), qPrintable(text));
        const QVariant back = modPictureText::textToPicture(text);
        QCOMPARE(back.typeId(), prefix.isEmpty() ? QMetaType::UnknownType : picture.typeId());
        if (back.typeId() == QMetaType::QCursor)
            QCOMPARE(back.value<QCursor>().hotSpot(), picture.value<QCursor>().hotSpot());
        if (back.typeId() == QMetaType::QIcon)
            QCOMPARE(back.value<QIcon>().pixmap(16).toImage(), picture.value<QIcon>().pixmap(16).toImage());
        for (const QString &garbage :
             { u"bitmap:AA"_s, u"cursor:24"_s, u"cursor::iVBORw0KGgo="_s, u"icon:%%"_s })
            QVERIFY(!modPictureText::textToPicture(garbage).isValid());
    }
};

QTEST_MAIN(tst_PropertyBag)
#include "tst_propertybag.moc"
