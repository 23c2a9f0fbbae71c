#include "serialize/XmlWriter.h"

#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/XmlFormat.h"
#include "serialize/modWebColorFuncs.h"

#include <QtCore/QLocale>
#include <QtCore/QStringEncoder>
#include <QtCore/QVariant>
#include <QtGui/QFont>
#include <QtGui/QFontInfo>
#include <QtGui/QPalette>

#include <pugixml.hpp>

namespace OrrinQuiver::XmlWriter {

namespace {

using namespace XmlFormat;

// Collects the saved document as UTF-8.
class ByteArrayWriter : public pugi::xml_writer
{
public:
    void write(const void *data, size_t size) override
    {
        bytes.append(static_cast<const char *>(data), qsizetype(size));
    }

    QByteArray bytes;
};

// The control's values that decide which optional attributes an item gets.
struct ItemDefaults
{
    OLE_COLOR foreColor = 0;
    OLE_COLOR maskColor = 0;
    bool bold = false;
    const QObject *selectedItem = nullptr;
};

// A document under construction: the declaration comes first, then the root.
class Document
{
public:
    Document()
    {
        pugi::xml_node declaration = m_document.append_child(pugi::node_declaration);
        declaration.append_attribute("version").set_value("1.0");
    }

    pugi::xml_node appendRoot(const char *data)
    {
        pugi::xml_node root = m_document.append_child(RootElement);
        root.append_attribute(VersionAttribute).set_value(currentVersion());
        root.append_attribute(DataAttribute).set_value(data);
        return root;
    }

    void setText(pugi::xml_node element, const char *name, QStringView value)
    {
        // One buffer serves every attribute, so a large document does not
        // allocate a temporary per value.
        m_utf8.resize(m_encoder.requiredSpace(value.size()));
        const char *end = m_encoder.appendToBuffer(m_utf8.data(), value);
        element.append_attribute(name).set_value(m_utf8.constData(), size_t(end - m_utf8.constData()));
    }

    QString text() const
    {
        ByteArrayWriter writer;
        m_document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
        return QString::fromUtf8(writer.bytes);
    }

private:
    pugi::xml_document m_document;
    QStringEncoder m_encoder { QStringEncoder::Utf8, QStringEncoder::Flag::Stateless };
    QByteArray m_utf8;
};

// The text of a Variant as the object model shows it; "" for an object, which
// has no text of its own.
QString variantText(const QVariant &value)
{
    if (value.metaType().flags() & QMetaType::PointerToQObject)
        return {};
    if (value.metaType().id() == QMetaType::Bool)
        return QString::fromLatin1(booleanText(value.toBool()));
    return value.toString();
}

void setNonEmpty(Document &document, pugi::xml_node element, const char *name, const QString &value)
{
    if (!value.isEmpty())
        document.setText(element, name, value);
}

void setBoolean(pugi::xml_node element, const char *name, bool value)
{
    element.append_attribute(name).set_value(booleanText(value));
}

// "caption", "key" and "index", which every header and item carries.
template<typename Member>
void writeIdentity(Document &document, pugi::xml_node element, const Member &member)
{
    document.setText(element, CaptionAttribute, member.Caption());
    document.setText(element, KeyAttribute, member.Key());
    element.append_attribute("index").set_value(member.Index());
}

// "enabled" through "tag": written only where the member differs from a
// freshly added one.
template<typename Member>
void writeState(Document &document, pugi::xml_node element, const Member &member, bool selected)
{
    if (!member.Enabled())
        setBoolean(element, "enabled", false);
    if (member.ToolTipText() != member.Caption())
        document.setText(element, "tooltiptext", member.ToolTipText());
    if (!member.Visible())
        setBoolean(element, "visible", false);
    if (selected)
        setBoolean(element, "selected", true);
    setNonEmpty(document, element, "tag", variantText(member.Tag()));
}

void writeItems(Document &document, pugi::xml_node parent, const Items &items, const ItemDefaults &defaults)
{
    for (const Item *item : items) {
        pugi::xml_node element = parent.append_child(ItemElement);
        writeIdentity(document, element, *item);
        writeState(document, element, *item, item == defaults.selectedItem);
        // The colours are plain signed Longs here, not colour text, so system
        // colours keep their system-colour value.
        if (item->ForeColor() != defaults.foreColor)
            element.append_attribute("itemforecolor").set_value(qint32(item->ForeColor()));
        if (item->MaskColor() != defaults.maskColor)
            element.append_attribute("maskcolor").set_value(qint32(item->MaskColor()));
        if (item->Bold() != defaults.bold)
            setBoolean(element, "bold", item->Bold());
        setNonEmpty(document, element, "icon", variantText(item->Icon()));
        setNonEmpty(document, element, "smallicon", variantText(item->SmallIcon()));
        setNonEmpty(document, element, "urlicon", item->URLIcon());
        setNonEmpty(document, element, "urlsmallicon", item->URLSmallIcon());
    }
}

ItemDefaults itemDefaults(const QObject &control)
{
    ItemDefaults defaults;
    defaults.foreColor = control.property("ItemForeColor").value<OLE_COLOR>();
    defaults.maskColor = control.property("DefaultMaskColor").value<OLE_COLOR>();
    defaults.bold = control.property("Font").value<QFont>().bold();
    defaults.selectedItem = control.property("SelectedItem").value<QObject *>();
    return defaults;
}

// The point size even of a font that was given in pixels.
double pointSize(const QFont &font)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

void writeStyle(Document &document, pugi::xml_node root, const QObject &control, const Navigation &navigation)
{
    const QFont font = control.property("Font").value<QFont>();
    const QPalette palette = control.property("palette").value<QPalette>();
    for (const StyleAttribute &attribute : StyleAttributes) {
        const QObject &target = attribute.target == StyleTarget::Navigation ? navigation : control;
        const QVariant value = target.property(attribute.property);
        switch (attribute.value) {
        case StyleValue::FontFamily:
            document.setText(root, attribute.name, font.family());
            break;
        case StyleValue::FontSize:
            document.setText(root, attribute.name,
                             QString::number(pointSize(font), 'g', QLocale::FloatingPointShortest));
            break;
        case StyleValue::Color:
            document.setText(root, attribute.name,
                             modWebColorFuncs::colorToText(value.value<OLE_COLOR>(), palette));
            break;
        case StyleValue::Number:
            root.append_attribute(attribute.name).set_value(value.toInt());
            break;
        case StyleValue::Boolean:
            setBoolean(root, attribute.name, value.toBool());
            break;
        case StyleValue::Text:
            document.setText(root, attribute.name, value.toString());
            break;
        case StyleValue::ImageList: {
            const QObject *images = value.value<QObject *>();
            document.setText(root, attribute.name, images ? images->objectName() : QString());
            break;
        }
        }
    }
}

} // namespace

QString controlDocument(const QObject &control, const Headers &headers, const Navigation &navigation)
{
    Document document;
    pugi::xml_node root = document.appendRoot(ItemsData);
    writeStyle(document, root, control, navigation);
    const ItemDefaults defaults = itemDefaults(control);
    const QObject *selectedHeader = control.property("SelectedHeader").value<QObject *>();
    for (const Header *header : headers) {
        pugi::xml_node element = root.append_child(HeaderElement);
        writeIdentity(document, element, *header);
        writeState(document, element, *header, header == selectedHeader);
        element.append_attribute("view").set_value(int(header->View()));
        writeItems(document, element, *header->Items(), defaults);
    }
    return document.text();
}

QString headerFragment(const QObject &control, const Header &header)
{
    Document document;
    pugi::xml_node element = document.appendRoot(ItemsData).append_child(HeaderElement);
    document.setText(element, FilterSourceAttribute, header.Key());
    writeItems(document, element, *header.Items(), itemDefaults(control));
    return document.text();
}

QString historyDocument(const Navigation &navigation)
{
    Document document;
    pugi::xml_node root = document.appendRoot(HistoryData);
    const QStringList headerKeys = navigation.headerKeys();
    const QStringList itemKeys = navigation.itemKeys();
    for (qsizetype i = 0; i < headerKeys.size() && i < itemKeys.size(); ++i) {
        pugi::xml_node element = root.append_child(HistoryElement);
        document.setText(element, "header", headerKeys[i]);
        document.setText(element, "item", itemKeys[i]);
    }
    return document.text();
}

} // namespace OrrinQuiver::XmlWriter
