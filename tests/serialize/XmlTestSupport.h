#pragma once

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/QuiverError.h"

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>

#include <functional>

using Setup = std::function<void(OrrinQuiver::Quiver &)>;
Q_DECLARE_METATYPE(Setup)

inline QString fixture(const QString &name)
{
    QFile file(qEnvironmentVariable("QUIVER_TEST_DATA") + QStringLiteral("/fixtures/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing fixture %s", qPrintable(name));
    return QString::fromUtf8(file.readAll());
}

// Every element of a document as "name attribute=value ...", attributes in
// document order.
inline QStringList elementLines(const QString &xml)
{
    QStringList lines;
    QXmlStreamReader reader(xml);
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.atEnd()) {
        if (!reader.isStartElement())
            continue;
        QStringList parts{reader.name().toString()};
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            parts << QStringLiteral("%1=%2").arg(attribute.name(), attribute.value());
        lines << parts.join(u' ');
    }
    return lines;
}

// The number and description of the QuiverError that `call` throws; 0 when
// it throws none.
inline std::pair<int, QString> errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const OrrinQuiver::QuiverError &error) {
        return {error.Number(), error.Description()};
    }
    return {0, QString()};
}

// What a host sees of a member: key, caption and Index, then whatever is not
// as Add left it.
template<typename Member>
QStringList commonParts(const Member &member)
{
    QStringList parts{member.Key(), member.Caption(), QString::number(member.Index())};
    if (!member.Enabled())
        parts << QStringLiteral("disabled");
    if (!member.Visible())
        parts << QStringLiteral("hidden");
    if (member.ToolTipText() != member.Caption())
        parts << QStringLiteral("tip=") + member.ToolTipText();
    if (!member.Tag().toString().isEmpty())
        parts << QStringLiteral("tag=") + member.Tag().toString();
    if (member.Selected())
        parts << QStringLiteral("selected");
    if (!member.isLive())
        parts << QStringLiteral("not live");
    return parts;
}

// One line per header ("H ...") and item ("I ..."), in position order.
inline QStringList outline(const OrrinQuiver::Quiver &quiver)
{
    QStringList lines;
    for (const OrrinQuiver::Header *header : *quiver.Headers()) {
        QStringList parts = commonParts(*header);
        if (header->View() != OrrinQuiver::qvViewLargeIcons)
            parts << QStringLiteral("small view");
        lines << QStringLiteral("H ") + parts.join(u' ');
        for (const OrrinQuiver::Item *item : *header->Items()) {
            parts = commonParts(*item);
            if (item->ForeColor() != quiver.ItemForeColor())
                parts << QStringLiteral("fore=%1").arg(item->ForeColor(), 0, 16);
            if (item->MaskColor() != quiver.DefaultMaskColor())
                parts << QStringLiteral("mask=%1").arg(item->MaskColor(), 0, 16);
            if (item->Bold())
                parts << QStringLiteral("bold");
            for (const QVariant &icon : {item->Icon(), item->SmallIcon()}) {
                if (!icon.toString().isEmpty())
                    parts << QStringLiteral("icon=") + icon.toString();
            }
            for (const QString &url : {item->URLIcon(), item->URLSmallIcon()}) {
                if (!url.isEmpty())
                    parts << QStringLiteral("url=") + url;
            }
            lines << QStringLiteral("I ") + parts.join(u' ');
        }
    }
    return lines;
}
