#include "platform/foundation/NotificationCenter.h"

#include <QtCore/QStringList>
#include <gtest/gtest.h>

#include <optional>

using platform::NotificationCenter;
using platform::Subscription;

namespace {

const QString name = QStringLiteral("name");

TEST(NotificationCenter, TellsTheObserversOfTheNameInTheirOrder) {
    QStringList told;
    auto& center = NotificationCenter::defaultCenter();
    const Subscription first = center.addObserver(
        name, [&](const QVariant& object) { told << QStringLiteral("first ") + object.toString(); });
    const Subscription second = center.addObserver(
        name, [&](const QVariant& object) { told << QStringLiteral("second ") + object.toString(); });
    const Subscription other = center.addObserver(
        QStringLiteral("Name"), [&](const QVariant& /*object*/) { told << QStringLiteral("other"); });
    center.post(name, QStringLiteral("x"));
    center.post(QStringLiteral("nobody's"));
    EXPECT_EQ(told, (QStringList{QStringLiteral("first x"), QStringLiteral("second x")}));
}

TEST(NotificationCenter, ObserversComeAndGoWhileTheyAreTold) {
    NotificationCenter center;
    QStringList told;
    std::optional<Subscription> itself;
    std::optional<Subscription> next;
    std::optional<Subscription> late;
    itself = center.addObserver(name, [&](const QVariant& object) {
        told << QStringLiteral("itself");
        EXPECT_TRUE(object.isNull());
        itself.reset();
        next.reset();
        late = center.addObserver(name, [&](const QVariant& /*object*/) { told << QStringLiteral("late"); });
    });
    next = center.addObserver(name, [&](const QVariant& /*object*/) { told << QStringLiteral("next"); });
    center.post(name);
    EXPECT_EQ(told, (QStringList{QStringLiteral("itself")}));
    center.post(name);
    EXPECT_EQ(told, (QStringList{QStringLiteral("itself"), QStringLiteral("late")}));
}

} // namespace
