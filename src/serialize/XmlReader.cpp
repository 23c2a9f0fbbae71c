#include "serialize/XmlReader.h"

#include "model/ControlLink.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "model/QuiverError.h"
#include "serialize/XmlFormat.h"
#include "serialize/modWebColorFuncs.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QVariant>
#include <QtGui/QFont>

#include <pugixml.hpp>

#include <cstring>
#include <vector>

namespace OrrinQuiver::XmlReader {

namespace {

using namespace XmlFormat;

QuiverError invalidContent()
{
    return QuiverError(qvErrorXMLInvalidContent, QStringLiteral("Invalid XML content supplied"));
}

QString text(const pugi::xml_attribute &attribute) { return QString::fromUtf8(attribute.value()); }

// Parses `utf8` in place (the document points into it) and returns its root
// element; throws when the text holds no control document root.
pugi::xml_node loadRoot(pugi::xml_document &document, QByteArray &utf8)
{
    const pugi::xml_parse_result result = document.load_buffer_inplace(
        utf8.data(), size_t(utf8.size()), pugi::parse_default, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory)
        throw QuiverError(qvErrorXMLParserNotPresent,
                          QStringLiteral("MSXML or MSXML3 not found during XML operation"));
    if (!result)
        throw invalidContent();
    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), RootElement) != 0)
        throw invalidContent();
    // A second element beside the root makes the text no single document.
    for (pugi::xml_node node = root.next_sibling(); node; node = node.next_sibling()) {
        if (node.type() == pugi::node_element)
            throw invalidContent();
    }
    return root;
}

// How an attribute's text becomes the value of a header or item property.
enum class Conversion { Text, Boolean, Integer, Real };

struct PropertySlot
{
    QMetaProperty property;
    Conversion conversion;
};

std::optional<Conversion> conversionFor(QMetaType type)
{
    if (type.flags() & QMetaType::IsEnumeration)
        return Conversion::Integer;
    switch (type.id()) {
    case QMetaType::QString:
    case QMetaType::QVariant:
        return Conversion::Text;
    case QMetaType::Bool:
        return Conversion::Boolean;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Conversion::Integer;
    case QMetaType::Float:
    case QMetaType::Double:
        return Conversion::Real;
    default:
        return std::nullopt;
    }
}

// The writable properties a class declares itself (QObject's objectName is
// not part of the object model), found by name in any letter case.
class PropertyTable
{
public:
    explicit PropertyTable(const QMetaObject &meta)
    {
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            if (!property.isWritable())
                continue;
            if (const auto conversion = conversionFor(property.metaType()))
                m_slots.push_back({ property, *conversion });
        }
    }

    const PropertySlot *find(const char *name) const
    {
        for (const PropertySlot &slot : m_slots) {
            if (qstricmp(slot.property.name(), name) == 0)
                return &slot;
        }
        return nullptr;
    }

private:
    std::vector<PropertySlot> m_slots;
};

std::optional<QVariant> convert(Conversion conversion, const QString &value)
{
    switch (conversion) {
    case Conversion::Text:
        return QVariant(value);
    case Conversion::Boolean:
        if (const auto flag = parseBoolean(value))
            return QVariant(*flag);
        return std::nullopt;
    case Conversion::Integer:
        // Colours and handles are Longs in the document: a negative number is
        // the same 32 bits as the unsigned value.
        if (const auto number = parseLong(value))
            return QVariant(qlonglong(*number));
        return std::nullopt;
    case Conversion::Real:
        if (const auto number = parseNumber(value))
            return QVariant(*number);
        return std::nullopt;
    }
    return std::nullopt;
}

// Sets the property named by the attribute; false when there is no such
// property or the value does not convert to its type.
bool setFromAttribute(QObject &object, const PropertyTable &table, const pugi::xml_attribute &attribute)
{
    const PropertySlot *slot = table.find(attribute.name());
    if (!slot)
        return false;
    std::optional<QVariant> value = convert(slot->conversion, text(attribute));
    return value && slot->property.write(&object, std::move(*value));
}

const PropertyTable &headerProperties()
{
    static const PropertyTable table(Header::staticMetaObject);
    return table;
}

const PropertyTable &itemProperties()
{
    static const PropertyTable table(Item::staticMetaObject);
    return table;
}

// Adds an item for every "item" child of `element`. The first attribute that
// cannot be set ends the reading of these items; the item being read then
// stays not live.
void readItems(Items &items, const pugi::xml_node &element)
{
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
        if (std::strcmp(child.name(), ItemElement) != 0)
            continue;
        Item *item = items.Add();
        if (!item)
            return;
        item->setLive(false);
        for (const pugi::xml_attribute &attribute : child.attributes()) {
            if (!setFromAttribute(*item, itemProperties(), attribute))
                return;
        }
        item->setLive(true);
    }
}

// The image list called `name` among the objects of the form that holds the
// control; nullptr when there is none.
QObject *findImageList(const QObject &control, const QString &name)
{
    const QObject *form = &control;
    while (form->parent())
        form = form->parent();
    return form->findChild<QObject *>(name);
}

void applyStyle(QObject &control, Navigation &navigation, const StyleAttribute &style, const QString &value)
{
    QObject &target = style.target == StyleTarget::Navigation ? static_cast<QObject &>(navigation) : control;
    switch (style.value) {
    case StyleValue::FontFamily: {
        QFont font = control.property(style.property).value<QFont>();
        font.setFamily(value);
        control.setProperty(style.property, font);
        break;
    }
    case StyleValue::FontSize:
        if (const auto size = parseNumber(value); size && *size > 0) {
            QFont font = control.property(style.property).value<QFont>();
            font.setPointSizeF(*size);
            control.setProperty(style.property, font);
        }
        break;
    case StyleValue::Color:
        target.setProperty(style.property, QVariant::fromValue(modWebColorFuncs::textToColor(value)));
        break;
    case StyleValue::Number:
        if (const auto number = parseLong(value))
            target.setProperty(style.property, int(*number));
        break;
    case StyleValue::Boolean:
        if (const auto flag = parseBoolean(value))
            target.setProperty(style.property, *flag);
        break;
    case StyleValue::Text:
        target.setProperty(style.property, value);
        break;
    case StyleValue::ImageList:
        if (QObject *images = value.isEmpty() ? nullptr : findImageList(control, value))
            target.setProperty(style.property, QVariant::fromValue(images));
        break;
    }
}

void readStyle(QObject &control, Navigation &navigation, const pugi::xml_node &root)
{
    for (const pugi::xml_attribute &attribute : root.attributes()) {
        for (const StyleAttribute &style : StyleAttributes) {
            if (std::strcmp(attribute.name(), style.name) == 0) {
                applyStyle(control, navigation, style, text(attribute));
                break;
            }
        }
    }
}

// The document's version; throws unless it is one this reader knows.
int checkVersion(const pugi::xml_node &root)
{
    const QString given = text(root.attribute(VersionAttribute));
    const std::optional<qint32> version = parseLong(given);
    if (!version || *version < OldestReadableVersion || *version > currentVersion()) {
        throw QuiverError(qvErrorXMLInvalidVersion,
                          QStringLiteral("Invalid Quiver XML version in XML content")
                              + (version ? QString::number(*version) : given)
                              + QStringLiteral(" - current version is ") + QString::number(currentVersion()));
    }
    return *version;
}

// Adds a header for every "header" child of the root, with its items. The
// first header attribute that cannot be set ends the whole reading; the
// header being read then stays not live and nothing is redrawn.
void readHeaders(Headers &headers, const pugi::xml_node &root)
{
    Header *last = nullptr;
    for (pugi::xml_node child = root.first_child(); child; child = child.next_sibling()) {
        if (std::strcmp(child.name(), HeaderElement) != 0)
            continue;
        Header *header = headers.Add();
        if (!header)
            return;
        header->setLive(false);
        for (const pugi::xml_attribute &attribute : child.attributes()) {
            if (!setFromAttribute(*header, headerProperties(), attribute))
                return;
        }
        readItems(*header->Items(), child);
        header->setLive(true);
        last = header;
    }
    if (last && headers.control()) {
        last->setNeedsPaint(true);
        headers.control()->redrawHeaderBar(last->barId());
    }
}

} // namespace

void readControlDocument(QObject &control, Headers &headers, Navigation &navigation, const QString &xml)
{
    QByteArray utf8 = xml.toUtf8();
    pugi::xml_document document;
    const pugi::xml_node root = loadRoot(document, utf8);
    const int version = checkVersion(root);
    if (std::strcmp(root.attribute(DataAttribute).value(), ItemsData) == 0)
        headers.Clear();
    if (version >= FirstStyledVersion)
        readStyle(control, navigation, root);
    readHeaders(headers, root);
}

void readHeaderFragment(Header &header, const QString &xml)
{
    QByteArray utf8 = xml.toUtf8();
    pugi::xml_document document;
    const pugi::xml_node element = loadRoot(document, utf8).child(HeaderElement);
    if (!element)
        throw invalidContent();
    header.Items()->Clear();
    readItems(*header.Items(), element);
}

} // namespace OrrinQuiver::XmlReader
