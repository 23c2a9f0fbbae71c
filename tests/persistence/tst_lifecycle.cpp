#include "QuiverTest.h"

#include "control/QuiverSounds.h"
#include "control/modQuiver.h"
#include "itemview/ItemContainer.h"
#include "serialize/MemoryPropertyBag.h"

#include <QtCore/QTemporaryFile>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtCore/QtEndian>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QVariantMap TwoItems { { u"NumHeaders"_s, 1 },
                             { u"Caption1"_s, u"Mail"_s },
                             { u"Header1Items"_s, 2 },
                             { u"Header1Item1Caption"_s, u"Inbox"_s },
                             { u"Header1Item2Caption"_s, u"Sent"_s },
                             { u"TrackNavigation"_s, true },
                             { u"CurrentItem"_s, 2 } };

} // namespace

class tst_Lifecycle : public QObject
{
    Q_OBJECT

private slots:
    void resize_data()
    {
        QTest::addColumn<QSize>("requested");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("too narrow") << QSize(30, 200) << QSize(52, 200);
        QTest::newRow("wide") << QSize(300, 200) << QSize(300, 200);
        QTest::newRow("no height: left alone") << QSize(30, 0) << QSize(30, 0);
    }
    void resize()
    {
        QFETCH(QSize, requested);
        QFETCH(QSize, expected);
        NewQuiver control;
        control.show();
        control.resize(requested);
        QCOMPARE(control.size(), expected);
    }

    void show_data()
    {
        QTest::addColumn<bool>("readInDesigner");
        QTest::addColumn<bool>("shownInDesigner");
        QTest::addColumn<int>("entries");
        QTest::newRow("in the host") << false << false << 1;
        QTest::newRow("in the designer") << true << true << 0;
        // Read in a designer, shown in the host: the item views leave design
        // mode and SmoothScroll goes off.
        QTest::newRow("read in the designer, shown in the host") << true << false << 1;
    }
    void show()
    {
        QFETCH(bool, readInDesigner);
        QFETCH(bool, shownInDesigner);
        QFETCH(int, entries);

        Quiver control;
        control.setDesignMode(readInDesigner);
        control.ReadProperties(MemoryPropertyBag(TwoItems));
        control.setDesignMode(shownInDesigner);
        auto *view = static_cast<ItemContainer *>(control.SelectedHeader()->itemView());
        view->setDesignMode(true);
        control.Navigation()->Clear();
        control.show();
        // In the host the open header's current item is the first history entry.
        QCOMPARE(control.Navigation()->CurrentPosition(), entries);
        if (entries)
            QCOMPARE(control.Navigation()->itemKeys(), QStringList { control.SelectedItem()->Key() });
        const bool leftDesignMode = readInDesigner && !shownInDesigner;
        QCOMPARE(view->DesignMode(), !leftDesignMode);
        QCOMPARE(control.SmoothScroll(), !leftDesignMode);
        QVERIFY(control.findChild<QTimer *>(QStringLiteral("RedrawTimer"))->isActive());
    }

    void sharedResources()
    {
        const int before = modQuiver::instanceCount();
        QVERIFY(!modQuiver::pictureEffects());
        auto first = std::make_unique<Quiver>();
        clsDrawPictures *effects = modQuiver::pictureEffects();
        QVERIFY(effects);
        QVERIFY(modQuiver::scrollBarWidth() > 0);
        auto second = std::make_unique<Quiver>();
        QCOMPARE(modQuiver::instanceCount(), before + 2);
        QCOMPARE(modQuiver::pictureEffects(), effects);
        first.reset();
        QCOMPARE(modQuiver::pictureEffects(), effects);
        second.reset();
        QCOMPARE(modQuiver::instanceCount(), before);
        QVERIFY(!modQuiver::pictureEffects());
    }

    void soundDownloads_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::newRow("item") << QByteArray("SoundItemURL");
        QTest::newRow("header up") << QByteArray("SoundHeaderUpURL");
        QTest::newRow("header down") << QByteArray("SoundHeaderDownURL");
    }
    void soundDownloads()
    {
        QFETCH(QByteArray, property);
        QTemporaryFile wave;
        QVERIFY(wave.open());
        wave.write(modQuiver::folderSound());
        wave.close();

        Quiver control;
        const auto *sounds = control.findChild<QuiverSounds *>();
        QVERIFY(sounds->sound(QuiverSounds::BuiltInSound).loaded);
        QCOMPARE(sounds->sound(QuiverSounds::BuiltInSound).data, modQuiver::folderSound());
        control.setProperty(property.constData(), QUrl::fromLocalFile(wave.fileName()).toString());
        // Only the sound whose address was set loads, and it loads the file.
        int loaded = 0;
        for (auto kind :
             { QuiverSounds::ItemSound, QuiverSounds::HeaderUpSound, QuiverSounds::HeaderDownSound }) {
            const QuiverSounds::Sound &sound = sounds->sound(kind);
            if (sound.url.isEmpty())
                continue;
            QTRY_VERIFY(sound.loaded);
            QCOMPARE(sound.data, modQuiver::folderSound());
            ++loaded;
        }
        QCOMPARE(loaded, 1);
        // An empty address unloads it again.
        control.setProperty(property.constData(), QString());
        for (auto kind : { QuiverSounds::ItemSound, QuiverSounds::HeaderUpSound, QuiverSounds::HeaderDownSound })
            QVERIFY(!sounds->sound(kind).loaded);
    }

    void folderSound()
    {
        // The built-in header click: RIFF WAVE, PCM, mono, 22,050 Hz, 16 bits,
        // 9,458 bytes, a LIST chunk between "fmt " and "data".
        const QByteArray wave = modQuiver::folderSound();
        QCOMPARE(wave.size(), 9458);
        QCOMPARE(wave.first(48).toHex(),
                 QByteArray("52494646ea24000057415645666d74201000000001000100"
                            "2256000044ac0000020010004c4953548c000000494e464f"));
        QCOMPARE(wave.mid(184, 8).toHex(), QByteArray("6461746132240000"));
        // A click: a sharp start that dies away to silence well before the end.
        auto sample
            = [&](int i) { return std::abs(qFromLittleEndian<qint16>(wave.constData() + 192 + 2 * i)); };
        int loudest = 0;
        for (int i = 0; i < 441; ++i)
            loudest = std::max(loudest, sample(i));
        QVERIFY(loudest > 16000);
        for (int i = 4633 - 441; i < 4633; ++i)
            QCOMPARE(sample(i), 0);
    }

    void focus()
    {
        QWidget window;
        auto *other = new QLineEdit(&window);
        auto *control = new Quiver(&window);
        control->setFocusPolicy(Qt::StrongFocus);
        control->ReadProperties(MemoryPropertyBag(TwoItems));
        control->setGeometry(0, 30, 120, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        // With the tab-stop flag, the focus the control gets goes on to the open item view.
        control->setFocus();
        QTRY_COMPARE(
            QApplication::focusWidget(),
            static_cast<QWidget *>(static_cast<ItemContainer *>(control->SelectedHeader()->itemView())));
        other->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), other);
    }
};

QTEST_MAIN(tst_Lifecycle)
#include "tst_lifecycle.moc"
