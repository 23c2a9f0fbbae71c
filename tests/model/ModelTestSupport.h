#pragma once

#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/ModelChecker.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtTest/QTest>

inline QStringList problemsOf(const OrrinQuiver::Headers &headers) { return OrrinQuiver::checkModel(headers); }
inline QStringList problemsOf(const OrrinQuiver::Items &items) { return OrrinQuiver::checkItems(items); }

// Fails the test with the checker's findings when the headers or items are not sound.
#define CHECK_MODEL(members)                                                                        \
    do {                                                                                            \
        const QStringList problems_ = problemsOf(members);                                          \
        QVERIFY2(problems_.isEmpty(), qPrintable(problems_.join(QLatin1Char('\n'))));               \
    } while (false)

// Runs the deletions that removals left for the event loop.
inline void flushDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

template<typename Collection>
QStringList keysOf(const Collection &collection)
{
    QStringList keys;
    for (const auto *member : collection)
        keys << member->Key();
    return keys;
}

template<typename Collection>
QList<int> indexesOf(const Collection &collection)
{
    QList<int> indexes;
    for (const auto *member : collection)
        indexes << member->Index();
    return indexes;
}
