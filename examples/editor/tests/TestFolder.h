#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

namespace tessarine::editor {

// A folder of a test's own, and files in it.
class TestFolder {
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QString root() const { return m_folder.path(); }

    QString write(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    QByteArray read(const QString& name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace tessarine::editor
