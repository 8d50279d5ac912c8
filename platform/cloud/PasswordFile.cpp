#include "platform/cloud/PasswordFile.h"

#include "platform/cloud/AccountFile.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

// A socket in this folder is looked up under the name of the machine itself.
const QString defaultSocketFolder = QStringLiteral("/var/run/postgresql");

using Key = std::array<QByteArray, 4>; // host, port, database, user

QByteArray escaped(QByteArray text) {
    text.replace('\\', "\\\\");
    text.replace(':', "\\:");
    return text;
}

// A field that is one star would match everything.
QByteArray escapedField(const QString& text) {
    return text == QStringLiteral("*") ? QByteArray("\\*") : escaped(text.toUtf8());
}

Key keyOf(const ServerAccount& account) {
    const bool isDefaultSocket = account.host == defaultSocketFolder;
    return {escapedField(isDefaultSocket ? QStringLiteral("localhost") : account.host),
            QByteArray::number(account.port), escapedField(account.database), escapedField(account.user)};
}

// The first four fields as written; fewer where the line has no more.
QList<QByteArray> fieldsOf(const QByteArray& line) {
    QList<QByteArray> fields;
    qsizetype start = 0;
    for (qsizetype i = 0; i < line.size() && fields.size() < 4; ++i) {
        if (line[i] == '\\') {
            ++i;
        } else if (line[i] == ':') {
            fields += line.sliced(start, i - start);
            start = i + 1;
        }
    }
    return fields;
}

QByteArray unescaped(const QByteArray& field) {
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 1 < field.size()) ++i;
        text += field[i];
    }
    return text;
}

bool isOurs(const QByteArray& line, const Key& key) {
    return !line.startsWith('#') && std::ranges::equal(fieldsOf(line), key, {}, unescaped, unescaped);
}

bool matches(const QByteArray& line, const Key& key) {
    return !line.startsWith('#') &&
           std::ranges::equal(fieldsOf(line), key, [](const QByteArray& field, const QByteArray& wanted) {
               return field == "*" || unescaped(field) == unescaped(wanted);
           });
}

} // namespace

QString PasswordFile::defaultPath() {
    return accountFilePath("PGPASSFILE", QStringLiteral(".pgpass"));
}

CloudResult<void> PasswordFile::write(const ServerAccount& account, const QString& password) const {
    for (const auto& text : {account.host, account.database, account.user, password})
        if (!fitsInALine(text))
            return std::unexpected(accountError(
                QStringLiteral("the account or its password has characters that cannot be stored")));
    const auto bytes = readAccountFile(m_path);
    if (!bytes) return std::unexpected(bytes.error());
    auto lines = linesOf(*bytes);
    const Key key = keyOf(account);
    const auto isMatch = [&key](const QByteArray& line) { return matches(line, key); };
    const qsizetype at = std::ranges::find_if(lines, isMatch) - lines.begin();
    lines.removeIf([&key](const QByteArray& line) { return isOurs(line, key); });
    insertLine(lines, at,
               QByteArrayList(key.begin(), key.end()).join(':') + ':' + escaped(password.toUtf8()));
    return writeAccountFile(m_path, lines.join());
}

bool PasswordFile::shareLine(const ServerAccount& one, const ServerAccount& other) {
    return keyOf(one) == keyOf(other);
}

CloudResult<void> PasswordFile::remove(const ServerAccount& account) const {
    const auto bytes = readAccountFile(m_path);
    if (!bytes) return std::unexpected(bytes.error());
    auto lines = linesOf(*bytes);
    const Key key = keyOf(account);
    if (lines.removeIf([&key](const QByteArray& line) { return isOurs(line, key); }) == 0) return {};
    return writeAccountFile(m_path, lines.join());
}

} // namespace platform
