#pragma once

#include "account/AccountDraft.h"

#include <QtWidgets/QWidget>

#include <functional>

class QAbstractButton;
class QLineEdit;
class QStackedWidget;
class QVBoxLayout;

namespace account {

// The fields of an account: a server's, or a shared file's. Main thread.
class Form : public QWidget {
    Q_OBJECT

public:
    explicit Form(QWidget* parent);

    AccountDraft draft() const;
    void setDraft(const AccountDraft& draft);

    // Empty where the stored one is to stay.
    QString password() const;
    // What the empty field says about that.
    void setPasswordHint(const QString& hint);
    void clearPassword();

Q_SIGNALS:
    void edited();

private:
    QWidget* makeKindSwitch();
    QWidget* makeServerPage();
    QWidget* makeFilePage();
    QLineEdit* addField(QVBoxLayout* column, const QString& label, const QString& hint);
    void addChooser(QLineEdit* field, const QString& name, const std::function<QString()>& choose);
    void showPage();

    QAbstractButton* m_serverButton = nullptr;
    QAbstractButton* m_fileButton = nullptr;
    QLineEdit* m_host = nullptr;
    QLineEdit* m_port = nullptr;
    QLineEdit* m_database = nullptr;
    QLineEdit* m_user = nullptr;
    QLineEdit* m_password = nullptr;
    QLineEdit* m_rootCertificate = nullptr;
    QLineEdit* m_path = nullptr;
    QStackedWidget* m_pages = nullptr;
    QString m_sslMode; // of the draft; no field shows it
};

} // namespace account
