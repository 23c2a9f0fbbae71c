#include "serialize/XmlReader.h"

#include "model/ControlLink.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "core/QuiverError.h"
#include "serialize/XmlFormat.h"
#include "serialize/modWebColorFuncs.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QVariant>
#include <QtGui/QFont>

#include <pugixml.hpp>

#include <charconv>
#include <cstring>
#include <string>
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
// The common types are written straight into the property, without a
// QVariant; the rest go through the meta-object's own conversion.
enum class Conversion {
    String, // a QString property: the text
    VariantText, // a QVariant property (Tag, Icon): the text
    Boolean,
    Int, // an int property: a Long
    UInt, // a 32-bit unsigned property (a colour): a Long, the same 32 bits
    OtherInteger, // other integers and enumerations: a Long, converted by the meta-object
    Real,
};

struct PropertySlot
{
    QMetaProperty property;
    Conversion conversion;
};

std::optional<Conversion> conversionFor(QMetaType type)
{
    if (type.flags() & QMetaType::IsEnumeration)
        return Conversion::OtherInteger;
    switch (type.id()) {
    case QMetaType::QString:
        return Conversion::String;
    case QMetaType::QVariant:
        return Conversion::VariantText;
    case QMetaType::Bool:
        return Conversion::Boolean;
    case QMetaType::Int:
        return Conversion::Int;
    case QMetaType::UInt:
        return Conversion::UInt;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Conversion::OtherInteger;
    case QMetaType::Float:
    case QMetaType::Double:
        return Conversion::Real;
    default:
        return std::nullopt;
    }
}

// A Long from the attribute's text. The writers' plain decimal integers are
// read from the UTF-8 as they stand; anything else (blanks, a fraction, an
// exponent) takes the full reading.
std::optional<qint32> longOf(const char *text)
{
    qint32 value = 0;
    const char *end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, value);
    if (error == std::errc() && stop == end)
        return value;
    return parseLong(QString::fromUtf8(text));
}

// Hands `value`, which has exactly the property's type, to its setter.
void writeTyped(QObject &object, const QMetaProperty &property, void *value)
{
    int status = -1;
    int flags = 0;
    void *arguments[] = { value, nullptr, &status, &flags };
    QMetaObject::metacall(&object, QMetaObject::WriteProperty, property.propertyIndex(), arguments);
}

// Sets the property from the attribute's text; false when the text does not
// convert to the property's type.
bool write(QObject &object, const PropertySlot &slot, const char *text)
{
    switch (slot.conversion) {
    case Conversion::String: {
        QString value = QString::fromUtf8(text);
        writeTyped(object, slot.property, &value);
        return true;
    }
    case Conversion::VariantText: {
        QVariant value(QString::fromUtf8(text));
        writeTyped(object, slot.property, &value);
        return true;
    }
    case Conversion::Boolean:
        if (auto flag = parseBoolean(QString::fromUtf8(text))) {
            writeTyped(object, slot.property, &*flag);
            return true;
        }
        return false;
    case Conversion::Int:
        if (const auto number = longOf(text)) {
            int value = *number;
            writeTyped(object, slot.property, &value);
            return true;
        }
        return false;
    case Conversion::UInt:
        // Colours are Longs in the document: a negative number is the same
        // 32 bits as the unsigned value.
        if (const auto number = longOf(text)) {
            quint32 value = quint32(*number);
            writeTyped(object, slot.property, &value);
            return true;
        }
        return false;
    case Conversion::OtherInteger:
        if (const auto number = longOf(text))
            return slot.property.write(&object, QVariant(qlonglong(*number)));
        return false;
    case Conversion::Real:
        if (const auto number = parseNumber(QString::fromUtf8(text)))
            return slot.property.write(&object, QVariant(*number));
        return false;
    }
    return false;
}

// The writable properties a class declares itself (QObject's objectName is
// not part of the object model), found by name in any letter case. A
// document repeats the same few attribute names on every element, so each
// name, as written, is searched for once and then recognised by a plain
// compare.
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

    const PropertySlot *find(const char *name)
    {
        for (const auto &[written, slot] : m_seen) {
            if (written == name)
                return slot;
        }
        for (const PropertySlot &slot : m_slots) {
            if (qstricmp(slot.property.name(), name) == 0) {
                // Only so many spellings are remembered: a document that
                // writes a name in ever new letter cases cannot grow the list
                // without end.
                if (m_seen.size() < MaxSpellings)
                    m_seen.emplace_back(name, &slot);
                return &slot;
            }
        }
        return nullptr;
    }

private:
    static constexpr size_t MaxSpellings = 64;
    std::vector<PropertySlot> m_slots;
    std::vector<std::pair<std::string, const PropertySlot *>> m_seen;
};

// Sets the property named by the attribute; false when there is no such
// property or the value does not convert to its type.
bool setFromAttribute(QObject &object, PropertyTable &table, const pugi::xml_attribute &attribute)
{
    const PropertySlot *slot = table.find(attribute.name());
    return slot && write(object, *slot, attribute.value());
}

// The caption and key an item element starts with, in either order (the
// writers put them first), and the attribute after them.
struct Opening
{
    const char *caption = nullptr;
    const char *key = nullptr;
    pugi::xml_attribute rest;
};

// True when `name` is `lowerCase` in any letter case; the writer's own
// spelling is recognised without folding.
bool isName(const char *name, const char *lowerCase)
{
    return std::strcmp(name, lowerCase) == 0 || qstricmp(name, lowerCase) == 0;
}

Opening openingOf(const pugi::xml_node &element)
{
    Opening opening;
    pugi::xml_attribute attribute = element.first_attribute();
    for (; attribute; attribute = attribute.next_attribute()) {
        if (!opening.caption && isName(attribute.name(), CaptionAttribute))
            opening.caption = attribute.value();
        else if (!opening.key && isName(attribute.name(), KeyAttribute))
            opening.key = attribute.value();
        else
            break;
    }
    opening.rest = attribute;
    return opening;
}

// Adds the item for an element that starts as `opening` says, with its
// caption and key. Adding with the caption ends the same as adding with
// none and then setting it. A key that is no member's key or caption goes
// to Add directly, which ends as re-keying would: the counter moves on
// once, for the generated key that re-keying replaces, and no other member
// is touched. Any other key is set as the attribute would set it. nullptr
// when the collection takes no item.
Item *addItem(Items &items, const Opening &opening)
{
    const QString caption = opening.caption ? QString::fromUtf8(opening.caption) : QString();
    if (opening.key && *opening.key) {
        const QString key = QString::fromUtf8(opening.key);
        if (items.IndexOfCaption(key) == -1 && !items.withKey(key)) {
            if (Item *item = items.Add(0, key, caption)) {
                items.NextKey();
                item->setLive(false);
                return item;
            }
        }
    }
    Item *item = items.Add(0, QString(), caption);
    if (!item)
        return nullptr;
    item->setLive(false);
    if (opening.key)
        item->setKey(QString::fromUtf8(opening.key));
    return item;
}

// The property tables of one reading.
struct Tables
{
    PropertyTable header { Header::staticMetaObject };
    PropertyTable item { Item::staticMetaObject };
};

// Adds an item for every "item" child of `element`. The first attribute that
// cannot be set ends the reading of these items; the item being read then
// stays not live.
void readItems(Items &items, Tables &tables, const pugi::xml_node &element)
{
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
        if (std::strcmp(child.name(), ItemElement) != 0)
            continue;
        const Opening opening = openingOf(child);
        Item *item = addItem(items, opening);
        if (!item)
            return;
        for (pugi::xml_attribute attribute = opening.rest; attribute; attribute = attribute.next_attribute()) {
            if (!setFromAttribute(*item, tables.item, attribute))
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
void readHeaders(Headers &headers, Tables &tables, const pugi::xml_node &root)
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
            if (!setFromAttribute(*header, tables.header, attribute))
                return;
        }
        readItems(*header->Items(), tables, child);
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
    Tables tables;
    readHeaders(headers, tables, root);
}

void readHeaderFragment(Header &header, const QString &xml)
{
    QByteArray utf8 = xml.toUtf8();
    pugi::xml_document document;
    const pugi::xml_node element = loadRoot(document, utf8).child(HeaderElement);
    if (!element)
        throw invalidContent();
    header.Items()->Clear();
    Tables tables;
    readItems(*header.Items(), tables, element);
}

} // namespace OrrinQuiver::XmlReader
