#include "QuiverTest.h"

#include "design/StylePage.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

const QStringList Descriptions = {
    "Resets the control to default settings. Turns off item moving, staying down, underline. Turns on "
    "smooth scrolling and first header. Colors restored to Outlook 2000 system colors.",
    "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay down. Colors "
    "restored to Windows / Office 2000 system colors. Header and item mouse icons set to arrow.",
    "Turns off item moving, staying down, underline. Turns on smooth scrolling and first header. Colors "
    "restored to Outlook XP system colors. Header and item mouse icons set to arrow.",
    "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay down. Colors "
    "restored to Windows / Office XP system colors. Header and item mouse icons set to arrow.",
    "Turns off item underline, smooth scrolling, move with click. Turns on items stay down and first header. "
    "Colors restored to Visual Studio colors. Header and item mouse icons set to arrow.",
};

struct Page
{
    StylePage page;
    QComboBox *styles = page.findChild<QComboBox *>(QStringLiteral("cmbStyle"));
    QLabel *description = page.findChild<QLabel *>(QStringLiteral("lblDescription"));
    QPushButton *apply = page.findChild<QPushButton *>(QStringLiteral("cmdApplySettings"));
};

} // namespace

class tst_StylePage : public QObject
{
    Q_OBJECT

private slots:
    void choosing_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("key"); // 0: none
        QTest::addColumn<int>("shown");
        QTest::newRow("Outlook shown") << 0 << 0 << 0;
        QTest::newRow("down to Windows2000") << 0 << int(Qt::Key_Down) << 1;
        QTest::newRow("up to OutlookXP") << 3 << int(Qt::Key_Up) << 2;
        QTest::newRow("WindowsXP shown") << 3 << 0 << 3;
        QTest::newRow("end: VisualStudio") << 0 << int(Qt::Key_End) << 4;
        QTest::newRow("unknown style shown as none") << 7 << 0 << -1;
    }
    void choosing()
    {
        QFETCH(int, current);
        QFETCH(int, key);
        QFETCH(int, shown);
        Quiver bar;
        bar.setStyle(qvStyle(current));
        Page p;
        p.page.setControl(&bar);
        if (key != 0)
            QTest::keyClick(p.styles, Qt::Key(key));
        QCOMPARE(p.styles->currentIndex(), shown);
        QCOMPARE(p.description->text(), Descriptions.value(shown));
        QCOMPARE(int(bar.Style()), current);
    }

    // The button writes the chosen preset to the control, and then shows the
    // style the control reads: none once it is gone.
    void applying()
    {
        Page p;
        QVERIFY(!p.apply->isEnabled());
        auto bar = std::make_unique<NewQuiver>();
        p.page.setControl(bar.get());
        QVERIFY(p.apply->isEnabled());
        p.styles->setCurrentIndex(qvStyleWindowsXP);
        QTest::mouseClick(p.apply, Qt::LeftButton);
        QCOMPARE(bar->Style(), qvStyleWindowsXP);
        QCOMPARE(bar->BackColor(), rgbColor(222, 219, 214));
        bar.reset();
        QTest::mouseClick(p.apply, Qt::LeftButton);
        QCOMPARE(p.styles->currentIndex(), -1);
        p.page.setControl(nullptr);
        QVERIFY(!p.apply->isEnabled());
    }
};

QTEST_MAIN(tst_StylePage)
#include "tst_stylepage.moc"
