#include "design/StylePage.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

namespace {

// The width at which a style's description wraps, in pixels.
constexpr int DescriptionWidth = 320;
// Room for the longest description at that width, in lines of text.
constexpr int DescriptionLines = 4;

// The drop-down's entries, in qvStyle order.
const char *const StyleNames[] = {
    QT_TRANSLATE_NOOP("OrrinQuiver::StylePage", "Outlook"),
    QT_TRANSLATE_NOOP("OrrinQuiver::StylePage", "Windows 2000"),
    QT_TRANSLATE_NOOP("OrrinQuiver::StylePage", "Outlook XP"),
    QT_TRANSLATE_NOOP("OrrinQuiver::StylePage", "Windows XP"),
    QT_TRANSLATE_NOOP("OrrinQuiver::StylePage", "Visual Studio"),
};

} // namespace

class StylePagePrivate
{
public:
    explicit StylePagePrivate(StylePage *page);

    // Selects the control's style in the drop-down (nothing without one of
    // the five) and enables the button when there is a control.
    void showControlStyle();
    void applyChosen();

    QComboBox *styles;
    QLabel *description;
    QPushButton *apply;
    std::unique_ptr<StylePreset::Target> target;
};

StylePagePrivate::StylePagePrivate(StylePage *page)
    : styles(new QComboBox(page))
    , description(new QLabel(page))
    , apply(new QPushButton(StylePage::tr("&Apply Settings"), page))
{
    styles->setObjectName(QStringLiteral("cmbStyle"));
    for (const char *name : StyleNames)
        styles->addItem(StylePage::tr(name));
    description->setObjectName(QStringLiteral("lblDescription"));
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    description->setFixedWidth(DescriptionWidth);
    description->setMinimumHeight(DescriptionLines * description->fontMetrics().lineSpacing());
    apply->setObjectName(QStringLiteral("cmdApplySettings"));

    auto *choice = new QFormLayout;
    choice->addRow(StylePage::tr("&Style:"), styles);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(apply);
    auto *layout = new QVBoxLayout(page);
    layout->addLayout(choice);
    layout->addWidget(description);
    layout->addLayout(buttons);

    QObject::connect(styles, &QComboBox::currentIndexChanged, page,
                     [this](int index) { description->setText(StylePreset::description(index)); });
    QObject::connect(apply, &QPushButton::clicked, page, [this] { applyChosen(); });
    showControlStyle();
}

void StylePagePrivate::showControlStyle()
{
    bool isNumber = false;
    const int style = target ? target->read("Style").toInt(&isNumber) : -1;
    styles->setCurrentIndex(isNumber && style >= 0 && style < styles->count() ? style : -1);
    apply->setEnabled(target != nullptr);
}

void StylePagePrivate::applyChosen()
{
    if (!target)
        return;
    StylePreset::apply(styles->currentIndex(), *target);
    // A control that kept another style got that style's preset: show it.
    showControlStyle();
}

StylePage::StylePage(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<StylePagePrivate>(this))
{ }

StylePage::~StylePage() = default;

void StylePage::setTarget(std::unique_ptr<StylePreset::Target> target)
{
    d->target = std::move(target);
    d->showControlStyle();
}

void StylePage::setControl(QObject *control)
{
    setTarget(control ? StylePreset::targetFor(control) : nullptr);
}

} // namespace OrrinQuiver
