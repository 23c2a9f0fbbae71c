#include "Demo.h"

#include "EventLog.h"
#include "control/Quiver.h"
#include "imaging/ImageList.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
#include <QtCore/QMetaEnum>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

namespace {

// The bar's size in the demo, that of a newly placed control.
constexpr int BarWidth = 200;
constexpr int BarHeight = 480;
// Icon sizes of the two image lists.
constexpr int LargeIcon = 32;
constexpr int SmallIcon = 16;
// The header that shows a view stays fast however many items it holds.
constexpr int ManyItems = 100'000;
// The room the event log starts with.
constexpr int LogWidth = 460;

struct DemoIcon {
    const char *key;
    QColor color;
    QChar letter;
};

const QList<DemoIcon> &demoIcons()
{
    static const QList<DemoIcon> icons = {
        {"today", QColor(0x1f, 0x6f, 0xb5), u'T'}, {"inbox", QColor(0x2e, 0x8b, 0x57), u'I'},
        {"calendar", QColor(0xc0, 0x39, 0x2b), u'C'}, {"contacts", QColor(0x8e, 0x44, 0xad), u'P'},
        {"tasks", QColor(0xd3, 0x84, 0x00), u'K'}, {"notes", QColor(0x16, 0xa0, 0x85), u'N'},
    };
    return icons;
}

struct DemoHeader {
    const char *caption;
    qvViewType view;
    QList<const char *> items;
};

const QList<DemoHeader> &demoHeaders()
{
    static const QList<DemoHeader> headers = {
        {"Outlook Shortcuts", qvViewLargeIcons, {"Outlook Today", "Inbox", "Calendar", "Contacts", "Tasks", "Notes"}},
        {"My Shortcuts", qvViewSmallIcons,
         {"Drafts", "Sent Items", "Outbox", "Deleted Items", "Journal", "Notes", "Tasks", "Calendar"}},
        {"Other Shortcuts", qvViewLargeIcons, {"My Computer", "My Documents", "Favorites"}},
    };
    return headers;
}

// A rounded square in the icon's colour with its letter: drawn, so that the
// demo needs no picture files.
QPixmap iconPicture(const DemoIcon &icon, int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(icon.color.darker(140));
    painter.setBrush(icon.color);
    painter.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 5.0, size / 5.0);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(size * 5 / 8);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(0, 0, size, size), Qt::AlignCenter, QString(icon.letter));
    return picture;
}

ImageList *makeImageList(QWidget *parent, int size)
{
    auto *list = new ImageList(parent);
    list->setImageWidth(size);
    list->setImageHeight(size);
    for (const DemoIcon &icon : demoIcons())
        list->AddFromPicture(iconPicture(icon, size), QString::fromLatin1(icon.key));
    return list;
}

} // namespace

Demo::Demo(QWidget *parent)
    : QWidget(parent)
    , m_control(new Quiver(this))
    , m_styles(new QComboBox(this))
    , m_smoothScroll(new QCheckBox(QStringLiteral("SmoothScroll"), this))
    , m_scrollDelay(new QSpinBox(this))
    , m_autoMouseWheel(new QCheckBox(QStringLiteral("AutoMouseWheel"), this))
    , m_flash(new QPushButton(QStringLiteral("Flash"), this))
    , m_back(new QPushButton(QStringLiteral("Back"), this))
    , m_forward(new QPushButton(QStringLiteral("Forward"), this))
    , m_log(new EventLog(this))
    , m_icons(makeImageList(this, LargeIcon))
    , m_smallIcons(makeImageList(this, SmallIcon))
{
    setWindowTitle(QStringLiteral("Quiver demo"));
    m_control->InitProperties();
    m_control->setFixedSize(BarWidth, BarHeight);
    m_control->setIcons(m_icons);
    m_control->setSmallIcons(m_smallIcons);
    fill();
    m_log->watch(m_control);
    m_log->setMinimumWidth(LogWidth);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_control);
    layout->addLayout(makeSide());
    layout->addWidget(m_log, 1);
    refresh();
    // Properties, the open header and the selected item change the controls
    // beside the bar and what the history can do.
    connect(m_control, &Quiver::PropertyChanged, this, &Demo::refresh);
}

QLayout *Demo::makeSide()
{
    const QMetaEnum styles = QMetaEnum::fromType<qvStyle>();
    for (int k = 0; k < styles.keyCount(); ++k)
        m_styles->addItem(QString::fromLatin1(styles.key(k)), styles.value(k));
    connect(m_styles, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_control->ApplyStylePreset(qvStyle(m_styles->itemData(index).toInt()));
        // An item keeps the caption colour it was made with; the demo's items
        // take the new style's colour, as a host that restyles would do.
        const OLE_COLOR color = m_control->ItemForeColor();
        for (Header *header : *m_control->Headers()) {
            for (Item *item : *header->Items())
                item->setForeColor(color);
        }
    });

    connect(m_smoothScroll, &QCheckBox::toggled, m_control, &Quiver::setSmoothScroll);
    connect(m_autoMouseWheel, &QCheckBox::toggled, m_control, &Quiver::setAutoMouseWheel);
    // The property's own range; the control clamps to it anyway.
    m_scrollDelay->setRange(10, 2000);
    m_scrollDelay->setSuffix(QStringLiteral(" ms"));
    connect(m_scrollDelay, &QSpinBox::valueChanged, m_control, &Quiver::setScrollDelay);
    m_flash->setCheckable(true);
    m_flash->setToolTip(QStringLiteral("Flashes the selected header until pressed again"));
    connect(m_flash, &QPushButton::toggled, this, &Demo::flash);
    connect(m_back, &QPushButton::clicked, this, [this] {
        m_control->Navigation()->GoBack();
        refresh();
    });
    connect(m_forward, &QPushButton::clicked, this, [this] {
        m_control->Navigation()->GoForward();
        refresh();
    });

    auto *history = new QHBoxLayout;
    history->addWidget(m_back);
    history->addWidget(m_forward);
    auto *delay = new QHBoxLayout;
    delay->addWidget(new QLabel(QStringLiteral("ScrollDelay"), this));
    delay->addWidget(m_scrollDelay);
    auto *side = new QVBoxLayout;
    side->addWidget(new QLabel(QStringLiteral("Style"), this));
    side->addWidget(m_styles);
    side->addWidget(m_smoothScroll);
    side->addLayout(delay);
    side->addWidget(m_autoMouseWheel);
    side->addWidget(m_flash);
    side->addWidget(new QLabel(QStringLiteral("Navigation"), this));
    side->addLayout(history);
    side->addStretch();
    return side;
}

void Demo::refresh()
{
    const QSignalBlocker smooth(m_smoothScroll);
    const QSignalBlocker delay(m_scrollDelay);
    const QSignalBlocker wheel(m_autoMouseWheel);
    m_smoothScroll->setChecked(m_control->SmoothScroll());
    m_scrollDelay->setValue(m_control->ScrollDelay());
    m_autoMouseWheel->setChecked(m_control->AutoMouseWheel());
    m_back->setEnabled(m_control->Navigation()->CanGoBack());
    m_forward->setEnabled(m_control->Navigation()->CanGoForward());
}

// One header flashes at a time: the one that was selected when the toggle
// went on, until it goes off.
void Demo::flash(bool on)
{
    if (m_flashing)
        m_flashing->Flash(false);
    m_flashing = on ? m_control->SelectedHeader() : nullptr;
    if (m_flashing)
        m_flashing->Flash(true);
}

QStringList Demo::renderScreens(const QString &directory)
{
    QDir out(directory);
    if (!out.mkpath(QStringLiteral(".")))
        return {};
    m_control->setPalette(classicPalette());
    const struct {
        int header;
        const char *name;
    } views[] = {{1, "large"}, {2, "small"}};
    QStringList files;
    for (int index = 0; index < m_styles->count(); ++index) {
        m_styles->setCurrentIndex(index);
        const QString style = m_styles->itemText(index).mid(int(qstrlen("qvStyle"))).toLower();
        for (const auto &view : views) {
            m_control->setSmoothScroll(false);
            if (Header *header = m_control->Headers()->at(view.header))
                header->setSelected(true);
            const QString file
                = out.absoluteFilePath(QStringLiteral("quiver-%1-%2.png").arg(style, QLatin1String(view.name)));
            if (!m_control->grab().save(file, "PNG"))
                return {};
            files << file;
        }
    }
    return files;
}

void Demo::fill()
{
    OrrinQuiver::Headers *headers = m_control->Headers();
    headers->Clear();
    const QList<DemoIcon> &icons = demoIcons();
    for (const DemoHeader &demo : demoHeaders()) {
        Header *header = headers->Add(0, {}, QString::fromLatin1(demo.caption), demo.view);
        for (int i = 0; i < demo.items.size(); ++i) {
            const QString key = QString::fromLatin1(icons.at(i % icons.size()).key);
            header->Items()->Add(0, {}, QString::fromLatin1(demo.items.at(i)), key, key);
        }
    }
    Header *many = headers->Add(0, {}, QStringLiteral("%L1 Items").arg(ManyItems), qvViewSmallIcons);
    Items *items = many->Items();
    for (int i = 1; i <= ManyItems; ++i) {
        const QString key = QString::fromLatin1(icons.at(i % icons.size()).key);
        items->Add(0, {}, QStringLiteral("Item %L1").arg(i), key, key);
    }
    if (Header *first = headers->at(1))
        first->setSelected(true);
}

} // namespace OrrinQuiver
