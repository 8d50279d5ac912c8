#include "platform/cloud/ServiceFile.h"

#include "platform/cloud/AccountFile.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <array>
#include <map>

namespace platform {

namespace {

const QByteArray header = "[quillet]";
const QString filePrefix = QStringLiteral("sqlite:");
constexpr std::array ourKeys{"host", "hostaddr", "port", "dbname", "user", "sslmode", "sslrootcert"};

using Values = std::map<QByteArray, QByteArray>;

bool isHeader(const QByteArray& line) {
    return line.trimmed().startsWith('[');
}

// Like libpq, which looks no further than the bracket.
bool isOurHeader(const QByteArray& line) {
    return line.trimmed().startsWith(header);
}

bool isBlankOrComment(const QByteArray& line) {
    const QByteArray text = line.trimmed();
    return text.isEmpty() || text.startsWith('#');
}

bool isOurKey(const QByteArray& line) {
    const QByteArray text = line.trimmed();
    const QByteArray key = text.left(text.indexOf('='));
    return std::ranges::any_of(ourKeys, [&key](const char* ours) { return key == ours; });
}

// The lines of a section behind its header: [start, limit).
struct Section {
    qsizetype start = 0;
    qsizetype limit = 0;
};

std::optional<Section> findSection(const QList<QByteArray>& lines) {
    const auto found = std::find_if(lines.begin(), lines.end(), isOurHeader);
    if (found == lines.end()) return std::nullopt;
    const auto end = std::find_if(found + 1, lines.end(), isHeader);
    return Section{found + 1 - lines.begin(), end - lines.begin()};
}

CloudResult<Values> valuesOf(const QList<QByteArray>& lines, const Section& section) {
    Values values;
    for (qsizetype i = section.start; i < section.limit; ++i) {
        if (isBlankOrComment(lines[i])) continue;
        const QByteArray line = lines[i].trimmed();
        const qsizetype equals = line.indexOf('=');
        if (equals <= 0)
            return std::unexpected(
                accountError(QStringLiteral("line %1 of the service file is no key=value").arg(i + 1)));
        values.emplace(line.left(equals), line.sliced(equals + 1));
    }
    return values;
}

QString textOf(const Values& values, const char* key) {
    const auto found = values.find(key);
    return found == values.end() ? QString() : QString::fromUtf8(found->second);
}

CloudResult<int> portOf(const QString& text) {
    if (text.isEmpty()) return ServerAccount().port;
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    if (!isNumber || port < 1 || port > 65535)
        return std::unexpected(accountError(QStringLiteral("the account's port is no port number")));
    return port;
}

CloudResult<ServerAccount> serverFrom(const Values& values) {
    const auto port = portOf(textOf(values, "port"));
    if (!port) return std::unexpected(port.error());
    ServerAccount account{textOf(values, "host"),    *port,
                          textOf(values, "dbname"),  textOf(values, "user"),
                          textOf(values, "sslmode"), textOf(values, "sslrootcert")};
    QStringList missing;
    if (account.host.isEmpty()) missing += QStringLiteral("host");
    if (account.database.isEmpty()) missing += QStringLiteral("dbname");
    if (account.user.isEmpty()) missing += QStringLiteral("user");
    if (!missing.isEmpty())
        return std::unexpected(
            accountError(QStringLiteral("the account says no %1").arg(missing.join(QStringLiteral(", ")))));
    return account;
}

CloudResult<CloudAccount> accountFrom(const Values& values) {
    const QString database = textOf(values, "dbname");
    if (!database.startsWith(filePrefix)) return serverFrom(values);
    const QString path = database.sliced(filePrefix.size());
    if (!path.startsWith(QLatin1Char('/')))
        return std::unexpected(accountError(QStringLiteral("the account's file has no absolute path")));
    return FileAccount{path};
}

using Entries = std::vector<std::pair<QByteArray, QString>>;

struct EntriesOf {
    Entries operator()(const FileAccount& file) const { return {{"dbname", filePrefix + file.path}}; }

    Entries operator()(const ServerAccount& server) const {
        Entries entries{{"host", server.host},
                        {"port", QString::number(server.port)},
                        {"dbname", server.database},
                        {"user", server.user}};
        if (!server.sslMode.isEmpty()) entries.emplace_back("sslmode", server.sslMode);
        if (!server.rootCertificate.isEmpty()) entries.emplace_back("sslrootcert", server.rootCertificate);
        return entries;
    }
};

// Blanks at the end would not come back.
bool isWritable(const Entries& entries) {
    return std::ranges::all_of(entries, [](const auto& entry) {
        return fitsInALine(entry.second) && entry.second.trimmed() == entry.second;
    });
}

void removeOurKeys(QList<QByteArray>& lines, const Section& section) {
    const auto start = lines.begin() + section.start;
    const auto limit = lines.begin() + section.limit;
    lines.erase(std::remove_if(start, limit, isOurKey), limit);
}

// The header and the section's lines go. Blank lines and comments at the end stay: they belong to what
// follows.
void removeSection(QList<QByteArray>& lines, const Section& section) {
    qsizetype limit = section.limit;
    while (limit > section.start && isBlankOrComment(lines[limit - 1]))
        --limit;
    lines.erase(lines.begin() + section.start - 1, lines.begin() + limit);
}

} // namespace

QString ServiceFile::defaultPath() {
    return accountFilePath("PGSERVICEFILE", QStringLiteral(".pg_service.conf"));
}

AccountResult ServiceFile::account() const {
    const auto bytes = readAccountFile(m_path);
    if (!bytes) return std::unexpected(bytes.error());
    const auto lines = linesOf(*bytes);
    const auto section = findSection(lines);
    if (!section) return std::nullopt;
    const auto values = valuesOf(lines, *section);
    if (!values) return std::unexpected(values.error());
    auto account = accountFrom(*values);
    if (!account) return std::unexpected(account.error());
    return std::move(*account);
}

CloudResult<void> ServiceFile::write(const CloudAccount& account) const {
    const auto entries = std::visit(EntriesOf(), account);
    if (!isWritable(entries))
        return std::unexpected(
            accountError(QStringLiteral("the account has characters that cannot be stored")));
    const auto bytes = readAccountFile(m_path);
    if (!bytes) return std::unexpected(bytes.error());
    auto lines = linesOf(*bytes);
    auto section = findSection(lines);
    if (section) {
        removeOurKeys(lines, *section);
    } else {
        insertLine(lines, lines.size(), header);
        section = Section{lines.size(), lines.size()};
    }
    for (qsizetype at = section->start; const auto& [key, value] : entries)
        insertLine(lines, at++, key + '=' + value.toUtf8());
    return writeAccountFile(m_path, lines.join());
}

CloudResult<void> ServiceFile::remove() const {
    const auto bytes = readAccountFile(m_path);
    if (!bytes) return std::unexpected(bytes.error());
    auto lines = linesOf(*bytes);
    if (!findSection(lines)) return {};
    // Every one of them: with the first gone, libpq would take the second.
    while (const auto section = findSection(lines))
        removeSection(lines, *section);
    return writeAccountFile(m_path, lines.join());
}

} // namespace platform
