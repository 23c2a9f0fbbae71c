#include "Demo.h"

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
#include <QtCore/QMetaEnum>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

namespace {

// The bar's size in the demo, that of a newly placed control.
constexpr int BarWidth = 200;
constexpr int BarHeight = 480;

struct DemoHeader {
    const char *caption;
    qvViewType view;
    QList<const char *> items;
};

const QList<DemoHeader> &demoHeaders()
{
    static const QList<DemoHeader> headers = {
        {"Outlook Shortcuts", qvViewLargeIcons, {"Outlook Today", "Inbox", "Calendar", "Contacts", "Tasks"}},
        {"My Shortcuts", qvViewSmallIcons, {"Drafts", "Sent Items", "Outbox", "Deleted Items", "Journal"}},
        {"Other Shortcuts", qvViewLargeIcons, {"My Computer", "My Documents", "Favorites"}},
    };
    return headers;
}

} // namespace

Demo::Demo(QWidget *parent)
    : QWidget(parent)
    , m_control(new Quiver(this))
    , m_styles(new QComboBox(this))
{
    setWindowTitle(QStringLiteral("Quiver demo"));
    m_control->InitProperties();
    m_control->setFixedSize(BarWidth, BarHeight);
    fill();

    const QMetaEnum styles = QMetaEnum::fromType<qvStyle>();
    for (int k = 0; k < styles.keyCount(); ++k)
        m_styles->addItem(QString::fromLatin1(styles.key(k)), styles.value(k));
    connect(m_styles, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_control->setStyle(qvStyle(m_styles->itemData(index).toInt())); });

    auto *side = new QVBoxLayout;
    side->addWidget(new QLabel(QStringLiteral("Style"), this));
    side->addWidget(m_styles);
    side->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_control);
    layout->addLayout(side);
}

QStringList Demo::renderScreens(const QString &directory)
{
    QDir out(directory);
    if (!out.mkpath(QStringLiteral(".")))
        return {};
    m_control->setPalette(classicPalette());
    QStringList files;
    for (int index = 0; index < m_styles->count(); ++index) {
        m_styles->setCurrentIndex(index);
        const QString name = m_styles->itemText(index).mid(int(qstrlen("qvStyle"))).toLower();
        const QString file = out.absoluteFilePath(QStringLiteral("quiver-%1.png").arg(name));
        if (!m_control->grab().save(file, "PNG"))
            return {};
        files << file;
    }
    return files;
}

void Demo::fill()
{
    OrrinQuiver::Headers *headers = m_control->Headers();
    headers->Clear();
    for (const DemoHeader &demo : demoHeaders()) {
        Header *header = headers->Add(0, {}, QString::fromLatin1(demo.caption), demo.view);
        for (const char *caption : demo.items)
            header->Items()->Add(0, {}, QString::fromLatin1(caption));
    }
    if (Header *first = headers->at(1))
        first->setSelected(true);
}

} // namespace OrrinQuiver
