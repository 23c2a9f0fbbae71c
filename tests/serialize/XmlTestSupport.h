#pragma once

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "core/QuiverError.h"

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

// Every element as "name attribute=value ...", attributes in document order.
inline QStringList elementLines(const QString &xml)
{
    QStringList lines;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        QStringList parts { reader.name().toString() };
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            parts << QStringLiteral("%1=%2").arg(attribute.name(), attribute.value());
        lines << parts.join(u' ');
    }
    return lines;
}

// The number and description of the QuiverError `call` throws; 0 for none.
inline std::pair<int, QString> errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const OrrinQuiver::QuiverError &error) {
        return { error.Number(), error.Description() };
    }
    return { 0, QString() };
}

// One line per header ("H") and item ("I"): key, caption, Index, then what
// differs from a member as Add made it.
inline QStringList outline(const OrrinQuiver::Quiver &quiver)
{
    QStringList lines;
    const auto line = [&lines](const char *kind, const auto &member, QStringList more) {
        QStringList parts { QLatin1String(kind), member.Key(), member.Caption(),
                            QString::number(member.Index()) };
        const QString tag = member.Tag().toString();
        for (const auto &[on, text] :
             { std::pair { !member.Enabled(), QStringLiteral("disabled") },
               { !member.Visible(), QStringLiteral("hidden") },
               { member.ToolTipText() != member.Caption(), "tip=" + member.ToolTipText() },
               { !tag.isEmpty(), "tag=" + tag },
               { member.Selected(), QStringLiteral("selected") },
               { !member.isLive(), QStringLiteral("not live") } }) {
            if (on)
                parts << text;
        }
        lines << (parts + more).join(u' ');
    };
    for (const OrrinQuiver::Header *header : *quiver.Headers()) {
        line("H", *header, header->View() ? QStringList { "small view" } : QStringList());
        for (const OrrinQuiver::Item *item : *header->Items()) {
            QStringList more;
            if (item->ForeColor() != quiver.ItemForeColor())
                more << QStringLiteral("fore=%1").arg(item->ForeColor(), 0, 16);
            if (item->MaskColor() != quiver.DefaultMaskColor())
                more << QStringLiteral("mask=%1").arg(item->MaskColor(), 0, 16);
            if (item->Bold())
                more << QStringLiteral("bold");
            for (const QString &name : { item->Icon().toString(), item->SmallIcon().toString(),
                                         item->URLIcon(), item->URLSmallIcon() }) {
                if (!name.isEmpty())
                    more << "icon=" + name;
            }
            line("I", *item, more);
        }
    }
    return lines;
}
