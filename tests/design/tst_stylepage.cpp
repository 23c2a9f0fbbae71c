#include "control/Quiver.h"
#include "design/StylePage.h"

#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace OrrinQuiver;

namespace {

const QStringList Descriptions = {
    QStringLiteral(
        "Resets the control to default settings. Turns off item moving, staying down, underline. Turns "
        "on smooth scrolling and first header. Colors restored to Outlook 2000 system colors."),
    QStringLiteral(
        "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay down. "
        "Colors restored to Windows / Office 2000 system colors. Header and item mouse icons set to "
        "arrow."),
    QStringLiteral(
        "Turns off item moving, staying down, underline. Turns on smooth scrolling and first header. "
        "Colors restored to Outlook XP system colors. Header and item mouse icons set to arrow."),
    QStringLiteral(
        "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay down. "
        "Colors restored to Windows / Office XP system colors. Header and item mouse icons set to arrow."),
    QStringLiteral(
        "Turns off item underline, smooth scrolling, move with click. Turns on items stay down and first "
        "header. Colors restored to Visual Studio colors. Header and item mouse icons set to arrow."),
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
    void choosing_data();
    void choosing();
    void applying_data();
    void applying();
    void withoutControl();
};

void tst_StylePage::choosing_data()
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

void tst_StylePage::choosing()
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

void tst_StylePage::applying_data()
{
    QTest::addColumn<int>("chosen");
    QTest::addColumn<OLE_COLOR>("backColor");
    QTest::newRow("Outlook") << 0 << SystemColors::ButtonShadow;
    QTest::newRow("WindowsXP") << 3 << rgbColor(222, 219, 214);
}

void tst_StylePage::applying()
{
    QFETCH(int, chosen);
    QFETCH(OLE_COLOR, backColor);
    Quiver bar;
    bar.InitProperties();
    bar.setStyle(qvStyleVisualStudio);
    Page p;
    p.page.setControl(&bar);
    p.styles->setCurrentIndex(chosen);
    QTest::mouseClick(p.apply, Qt::LeftButton);
    QCOMPARE(int(bar.Style()), chosen);
    QCOMPARE(bar.BackColor(), backColor);
}

void tst_StylePage::withoutControl()
{
    Page p;
    QVERIFY(!p.apply->isEnabled());
    auto bar = std::make_unique<Quiver>();
    p.page.setControl(bar.get());
    QVERIFY(p.apply->isEnabled());
    bar.reset();
    p.styles->setCurrentIndex(qvStyleWindowsXP);
    QTest::mouseClick(p.apply, Qt::LeftButton);
    QCOMPARE(p.styles->currentIndex(), -1); // the page shows what the (gone) control reads
    p.page.setControl(nullptr);
    QVERIFY(!p.apply->isEnabled());
}

QTEST_MAIN(tst_StylePage)
#include "tst_stylepage.moc"
