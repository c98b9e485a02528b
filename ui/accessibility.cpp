// SPDX-License-Identifier: MIT
#include "accessibility.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QLabel>

namespace {

// A picture that answers a click, shown as the push button it stands for when it has words: the drag
// strip and the game screens have none, and stay plain areas.
class PictureButton : public QAccessibleWidget {
public:
    explicit PictureButton(QWidget *widget) : QAccessibleWidget(widget) {}

    QAccessible::Role role() const override { return named() ? QAccessible::Button : QAccessible::Client; }

    // Its words: the name given to it, else a label's caption.
    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Name) {
            if (!widget()->accessibleName().isEmpty()) return widget()->accessibleName();
            if (const auto *label = qobject_cast<const QLabel *>(widget())) return label->text();
            return {};
        }
        if (t == QAccessible::Description) return widget()->accessibleDescription();
        return QAccessibleWidget::text(t);
    }

    QStringList actionNames() const override { return named() ? QStringList{pressAction()} : QStringList(); }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

    // A press is a click, and is refused where a click would be lost: on a hidden or disabled button
    // (input off), or behind a dialog that holds the input.
    void doAction(const QString &action) override
    {
        QWidget *button = widget();
        const QWidget *modal = QApplication::activeModalWidget();
        if (action != pressAction() || !named() || !button->isVisible() || !button->isEnabled()
            || (modal && modal != button->window()))
            return;
        QMetaObject::invokeMethod(button, "clicked");
    }

private:
    bool named() const { return !text(QAccessible::Name).isEmpty(); }
};

// A label whose name says what it shows; what it shows is its value.
class NamedValue : public QAccessibleWidget {
public:
    explicit NamedValue(QLabel *label) : QAccessibleWidget(label, QAccessible::StaticText) {}

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Value || t == QAccessible::Description)
            return static_cast<const QLabel *>(widget())->text();
        return QAccessibleWidget::text(t);
    }
};

// A window whose children are only those that are shown: the off-screen sheets, the screens of games
// not in play and the unused buttons of a dialog stay out of the tree.
class ShownChildren : public QAccessibleWidget {
public:
    ShownChildren(QWidget *window, QAccessible::Role role) : QAccessibleWidget(window, role) {}

    int childCount() const override { return static_cast<int>(shown().size()); }
    QAccessibleInterface *child(int index) const override
    {
        const QList<QWidget *> children = shown();
        return index >= 0 && index < children.size() ? QAccessible::queryAccessibleInterface(children[index]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child ? static_cast<int>(shown().indexOf(child->object())) : -1;
    }

private:
    QList<QWidget *> shown() const
    {
        QList<QWidget *> children;
        for (QObject *object : widget()->children())
            if (auto *child = qobject_cast<QWidget *>(object); child && !child->isWindow() && !child->isHidden())
                children << child;
        return children;
    }
};

QAccessibleInterface *interfaceFor(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget) return nullptr;
    if (className == QLatin1String("frmFond")) return new ShownChildren(widget, QAccessible::Window);
    if (className == QLatin1String("PictureDialog")) return new ShownChildren(widget, QAccessible::Dialog);
    if (className == QLatin1String("ClickLabel") || className == QLatin1String("HotSpot")
        || className == QLatin1String("Surface"))
        return new PictureButton(widget);
    if (className == QLatin1String("QLabel") && !widget->accessibleName().isEmpty())
        return new NamedValue(static_cast<QLabel *>(widget));
    return nullptr;
}

} // namespace

void installAccessibility() { QAccessible::installFactory(interfaceFor); }
