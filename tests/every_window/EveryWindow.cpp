#include "EveryWindow.h"

#include "window_tour/WindowTour.h"

#include <QSet>
#include <QWidget>

namespace {

class Inspector : public WindowVisitor {
public:
    explicit Inspector(const WindowCheck& check) : check_(check) {}

    void Visit(QWidget& window, const QString& name) override {
        for (const QString& finding : check_(window)) {
            if (known_.contains(finding))
                continue;
            known_.insert(finding);
            findings_ += (name + ": " + finding + '\n').toStdString();
        }
    }

    [[nodiscard]] const std::string& All() const { return findings_; }

private:
    const WindowCheck& check_;
    QSet<QString> known_;
    std::string findings_;
};

} // namespace

std::string FindingsOfEveryWindow(const WindowCheck& check) {
    Inspector inspector(check);
    WindowTour(inspector).GoThrough();
    return inspector.All();
}

QStringList WindowsOnTheWay() {
    QStringList names;
    (void)FindingsOfEveryWindow([&names](const QWidget& window) {
        names << window.objectName();
        return Findings();
    });
    names.removeDuplicates();
    return names;
}

QString Place(const QObject& control) {
    if (!control.objectName().isEmpty())
        return control.objectName();
    const QString kind = control.metaObject()->className();
    return control.parent() != nullptr ? kind + " in " + Place(*control.parent()) : kind;
}
