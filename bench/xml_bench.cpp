// Writing and reading the control document of a bar whose one header holds
// 100,000 items, next to pugixml's own parse and walk of the same text and a
// reader built on QDomDocument that makes the same headers and items. Goals:
// reading costs at most 3 times pugixml's parse and walk, and less than the
// QDomDocument reader.

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaProperty>
#include <QtXml/QDomDocument>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cstring>

using namespace OrrinQuiver;

namespace {

constexpr int ItemCount = 100000;

// A bar with one header of ItemCount items, every tenth with a tool tip of its own.
void fill(Quiver &quiver)
{
    quiver.InitProperties();
    Items *items = quiver.Headers()->at(1)->Items();
    for (int i = 1; i <= ItemCount; ++i) {
        Item *item = items->Add(0, QStringLiteral("K%1").arg(i), QStringLiteral("Item %1").arg(i));
        if (i % 10 == 0)
            item->setToolTipText(QStringLiteral("Tip %1").arg(i));
    }
}

const QString &documentText()
{
    static const QString text = [] {
        Quiver quiver;
        fill(quiver);
        return quiver.XML();
    }();
    return text;
}

// Empties the bar outside the measured time, so each reading starts alike.
void clear(benchmark::State &state, Quiver &quiver)
{
    state.PauseTiming();
    quiver.Headers()->Clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    state.ResumeTiming();
}

void WriteControlDocument(benchmark::State &state)
{
    Quiver quiver;
    fill(quiver);
    for (auto _ : state)
        benchmark::DoNotOptimize(quiver.XML());
}
BENCHMARK(WriteControlDocument)->Unit(benchmark::kMillisecond);

void ReadControlDocument(benchmark::State &state)
{
    Quiver quiver;
    const QString &text = documentText();
    for (auto _ : state) {
        clear(state, quiver);
        quiver.setXML(text);
    }
}
BENCHMARK(ReadControlDocument)->Unit(benchmark::kMillisecond);

// pugixml alone: parse the same text (as UTF-8) and visit every attribute.
void PugixmlParseAndWalk(benchmark::State &state)
{
    const QByteArray utf8 = documentText().toUtf8();
    for (auto _ : state) {
        pugi::xml_document document;
        document.load_buffer(utf8.constData(), size_t(utf8.size()), pugi::parse_default, pugi::encoding_utf8);
        size_t length = 0;
        for (const pugi::xml_node &header : document.document_element().children()) {
            for (const pugi::xml_node &item : header.children()) {
                for (const pugi::xml_attribute &attribute : item.attributes())
                    length += std::strlen(attribute.value());
            }
        }
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(PugixmlParseAndWalk)->Unit(benchmark::kMillisecond);

// Sets the property an attribute names, matched in any letter case, the way
// the library's reader does; false when there is none.
bool setByName(QObject &object, const QString &name, const QString &value)
{
    const QMetaObject *meta = object.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (name.compare(QLatin1String(property.name()), Qt::CaseInsensitive) == 0)
            return property.write(&object, value);
    }
    return false;
}

// The content part of the control document read through QDomDocument into
// the same headers and items.
void readWithDom(Quiver &quiver, const QString &text)
{
    QDomDocument document;
    document.setContent(text);
    quiver.Headers()->Clear();
    for (QDomElement h = document.documentElement().firstChildElement(QStringLiteral("header")); !h.isNull();
         h = h.nextSiblingElement(QStringLiteral("header"))) {
        Header *header = quiver.Headers()->Add();
        const QDomNamedNodeMap headerAttributes = h.attributes();
        for (int a = 0; a < headerAttributes.count(); ++a) {
            const QDomAttr attribute = headerAttributes.item(a).toAttr();
            setByName(*header, attribute.name(), attribute.value());
        }
        for (QDomElement i = h.firstChildElement(QStringLiteral("item")); !i.isNull();
             i = i.nextSiblingElement(QStringLiteral("item"))) {
            Item *item = header->Items()->Add();
            const QDomNamedNodeMap itemAttributes = i.attributes();
            for (int a = 0; a < itemAttributes.count(); ++a) {
                const QDomAttr attribute = itemAttributes.item(a).toAttr();
                setByName(*item, attribute.name(), attribute.value());
            }
        }
    }
}

void QDomDocumentReader(benchmark::State &state)
{
    Quiver quiver;
    const QString &text = documentText();
    for (auto _ : state) {
        clear(state, quiver);
        readWithDom(quiver, text);
    }
}
BENCHMARK(QDomDocumentReader)->Unit(benchmark::kMillisecond);

} // namespace
