#include "platform/cloud/ServerEnvironment.h"

#include <QtCore/QByteArrayList>
#include <gtest/gtest.h>

using namespace platform;

TEST(ServerEnvironment, KeepsTheNamesOfTheAccountsFilesAlone) {
    const QByteArrayList redirecting = {"PGHOST",    "PGHOSTADDR", "PGSERVICE",   "PGTARGETSESSIONATTRS",
                                        "PGOPTIONS", "PGSSLMODE",  "PGSYSCONFDIR"};
    const QByteArrayList kept = {"PGSERVICEFILE", "PGPASSFILE", "NOT_PGHOST"};
    for (const QByteArray& name : redirecting + kept)
        qputenv(name.constData(), "value");
    unsetServerEnvironment();
    for (const QByteArray& name : redirecting)
        EXPECT_FALSE(qEnvironmentVariableIsSet(name.constData())) << name.constData();
    for (const QByteArray& name : kept) {
        EXPECT_EQ(qgetenv(name.constData()), "value") << name.constData();
        qunsetenv(name.constData());
    }
}
