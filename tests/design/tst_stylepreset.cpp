#include "QuiverTest.h"

#include "control/StylePreset.h"
#include "platform/MousePointer.h"

#include <QtGui/QCursor>

namespace {

constexpr OLE_COLOR Kept = ~0u; // the value from before the preset
constexpr OLE_COLOR Face = SystemColors::ButtonFace, Shadow = SystemColors::ButtonShadow,
                    Text = SystemColors::ButtonText, Window = SystemColors::Window,
                    Light = SystemColors::ButtonHighlight, Dark = SystemColors::ButtonDarkShadow,
                    White = 0xFFFFFF;

// What each preset leaves behind, by style (flags as 0 and 1).
struct Expected
{
    const char *property;
    OLE_COLOR values[5];
};
// clang-format off
const Expected Results[] = {
    {"Style",                  {0, 1, 2, 3, 4}},
    {"ItemsMoveWithClick",     {0, 0, 0, 0, 0}},
    {"ItemsStayDownWithClick", {0, 1, 0, 1, 1}},
    {"ItemsUnderlineOnMove",   {0, 0, 0, 0, 0}},
    {"SmoothScroll",           {1, 0, 1, 0, 0}},
    {"AlwaysShowFirstHeader",  {1, 0, 1, 0, 1}},
    {"HeaderBackColor",        {Face, Face, Face, rgbColor(236, 233, 216), Face}},
    {"HeaderForeColor",        {Text, Text, Text, Text, Text}},
    {"HeaderOverForeColor",    {Text, Text, Text, Text, Text}},
    {"BackColor",              {Shadow, Shadow, Face, rgbColor(222, 219, 214), Face}},
    {"ItemForeColor",          {Window, Window, 0, 0, Text}},
    {"ItemOverForeColor",      {Window, Window, 0, White, Text}},
    {"ItemDownForeColor",      {Window, Window, 0, 0, Kept}},
    {"ItemOverBackColor",      {Shadow, Shadow, rgbColor(181, 190, 214), rgbColor(181, 190, 214), Kept}},
    {"ItemDownBackColor",      {Shadow, Shadow, rgbColor(132, 146, 181), rgbColor(132, 146, 181), rgbColor(233, 229, 221)}},
    {"CheckColor",             {Face, Face, rgbColor(8, 36, 107), rgbColor(8, 36, 107), rgbColor(233, 229, 221)}},
    {"ShadowColor",            {Shadow, Shadow, Shadow, rgbColor(132, 130, 132), Shadow}},
    {"DkShadowColor",          {Dark, Dark, Dark, 0, Dark}},
    {"HighlightColor",         {Light, Light, Light, White, Light}},
    // Clearing the item picture brings the item pointer back to the arrow.
    {"ItemMousePointer",       {1, 1, 1, 1, 1}},
    {"HeaderMousePointer",     {Kept, 0, Kept, 0, 0}},
};
// clang-format on

// A control whose colours all differ from each other and from every preset,
// with custom pointers, and flags the opposite of what `style` leaves.
void customise(Quiver &bar, int style)
{
    bar.InitProperties();
    int next = 0;
    for (const Expected &result : Results) {
        const QMetaProperty property
            = bar.metaObject()->property(bar.metaObject()->indexOfProperty(result.property));
        if (property.metaType() == QMetaType::fromType<bool>())
            property.write(&bar, result.values[style] == 0);
        else if (property.metaType() == QMetaType::fromType<OLE_COLOR>())
            property.write(&bar, QVariant::fromValue(rgbColor(10, 20, ++next)));
    }
    bar.setItemMouseIcon(QVariant::fromValue(QCursor(Qt::CrossCursor)));
    bar.setItemMousePointer(MousePointer::SizeAll);
    bar.setHeaderMousePointer(MousePointer::Hourglass);
}

// The control's own properties, except those that describe the whole bar or
// follow from the style; cursors (which have no equality) by shape.
QVariantHash ownProperties(const Quiver &bar)
{
    static const QStringList derived = { QStringLiteral("XML"), QStringLiteral("PropertyBagText"),
                                         QStringLiteral("hWnd"), QStringLiteral("HeaderHeight") };
    QVariantHash values;
    const QMetaObject &meta = Quiver::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QVariant value = meta.property(i).read(&bar);
        if (!derived.contains(QLatin1String(meta.property(i).name())))
            values.insert(QLatin1String(meta.property(i).name()),
                          value.metaType() == QMetaType::fromType<QCursor>()
                              ? QVariant(int(value.value<QCursor>().shape()))
                              : value);
    }
    return values;
}

// Keeps its own style whatever it is asked to take.
class RefusingTarget final : public StylePreset::Target
{
public:
    explicit RefusingTarget(QObject *control)
        : inner(StylePreset::targetFor(control))
    { }
    QVariant read(const char *name) const override { return inner->read(name); }
    void write(const char *name, const QVariant &value) override
    {
        if (qstrcmp(name, "Style") != 0)
            inner->write(name, value);
    }
    const std::unique_ptr<StylePreset::Target> inner;
};

} // namespace

class tst_StylePreset : public QObject
{
    Q_OBJECT

private slots:
    void presets_data()
    {
        QTest::addColumn<QList<int>>("earlier"); // presets applied first
        QTest::addColumn<int>("style");
        QTest::newRow("Outlook after custom colours") << QList<int> {} << 0;
        QTest::newRow("Windows2000") << QList<int> {} << 1;
        QTest::newRow("OutlookXP") << QList<int> {} << 2;
        QTest::newRow("WindowsXP") << QList<int> {} << 3;
        QTest::newRow("VisualStudio") << QList<int> {} << 4;
        QTest::newRow("VisualStudio after WindowsXP") << QList<int> { 3 } << 4;
    }
    void presets()
    {
        QFETCH(QList<int>, earlier);
        QFETCH(int, style);
        Quiver bar;
        customise(bar, style);
        for (const int other : earlier)
            bar.ApplyStylePreset(qvStyle(other));
        const QVariantHash before = ownProperties(bar);
        QSignalSpy announced(&bar, &Quiver::PropertyChanged);

        QVERIFY(
            QMetaObject::invokeMethod(&bar, "ApplyStylePreset", Q_ARG(OrrinQuiver::qvStyle, qvStyle(style))));

        QCOMPARE(announced.value(0).value(0).toString(), QStringLiteral("Style"));
        QVERIFY(!bar.ItemMouseIcon().isValid());
        QVariantHash after = ownProperties(bar);
        after.remove(QStringLiteral("ItemMouseIcon"));
        for (const Expected &result : Results) {
            const QString name = QLatin1String(result.property);
            const OLE_COLOR want
                = result.values[style] == Kept ? before.value(name).toUInt() : result.values[style];
            QCOMPARE(name + QString::number(after.take(name).toUInt(), 16), name + QString::number(want, 16));
        }
        for (auto it = after.cbegin(); it != after.cend(); ++it)
            QVERIFY2(it.value() == before.value(it.key()), qPrintable(it.key()));
    }

    void keptStyle_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("asked");
        QTest::addColumn<bool>("refuse");
        QTest::addColumn<OLE_COLOR>("expectedBack");
        QTest::newRow("refused, WindowsXP kept") << 3 << 0 << true << rgbColor(222, 219, 214);
        QTest::newRow("refused, unknown style kept") << 7 << 1 << true << Kept;
        QTest::newRow("asked for an unknown style") << 2 << 5 << false << Kept;
        QTest::newRow("asked for a negative style") << 2 << -1 << false << Kept;
    }
    void keptStyle()
    {
        QFETCH(int, current);
        QFETCH(int, asked);
        QFETCH(bool, refuse);
        QFETCH(OLE_COLOR, expectedBack);
        Quiver bar;
        customise(bar, 0);
        bar.setStyle(qvStyle(current));
        const OLE_COLOR before = bar.BackColor();
        RefusingTarget refusing(&bar);
        StylePreset::apply(asked, refuse ? refusing : *refusing.inner);
        QCOMPARE(int(bar.Style()), current);
        QCOMPARE(bar.BackColor(), expectedBack == Kept ? before : expectedBack);
    }
};

QTEST_MAIN(tst_StylePreset)
#include "tst_stylepreset.moc"
