#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QStringList>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace platform {

// A screen with one field that writes down what it is told, behind its title, into a list of the test's.
class RecordingController : public ViewController {
public:
    RecordingController(const QString& title, QStringList& log)
        : m_log(log)
        , m_field(new QLineEdit(this)) {
        setTitle(title);
        m_field->setAccessibleName(title);
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_field);
        column->addStretch();
    }

    QLineEdit& field() { return *m_field; }

protected:
    void viewDidLoad() override { note("load"); }

    void viewWillAppear(Animated /*animated*/) override { note("will+"); }

    void viewDidAppear(Animated /*animated*/) override { note("did+"); }

    void viewWillDisappear(Animated /*animated*/) override { note("will-"); }

    void viewDidDisappear(Animated /*animated*/) override { note("did-"); }

private:
    void note(const char* what) { m_log += title() + u' ' + QString::fromLatin1(what); }

    QStringList& m_log;
    QLineEdit* m_field;
};

} // namespace platform
