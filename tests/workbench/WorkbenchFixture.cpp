#include "workbench/WorkbenchFixture.h"

#include "kit/ui/Toolbar.h"
#include "library/LSMDesignKeys.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMDesignCommands.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using platform::PropertyList;

WorkbenchTest::WorkbenchTest()
{
    qputenv("LAYOUTSMITH_MODULES", LAYOUTSMITH_TEST_MODULES);
    const QVariantMap host{
        {QStringLiteral("CFBundleIdentifier"), QStringLiteral("com.quillbyte.lotbook9")}};
    QDir().mkpath(customFolder());
    QDir().mkpath(builtinFolder());
    PropertyList::write(
        host, PropertyList::Format::Xml,
        home.path(QStringLiteral("Applications/Lotbook 9.app/Contents/Info.plist")));
}

QString WorkbenchTest::customFolder() const
{
    return home.path(QStringLiteral("Library/Containers/com.quillbyte.lotbook9/Data/Library/"
                                    "Application Support/Lotbook/DesignTemplates"));
}

QString WorkbenchTest::builtinFolder() const
{
    return home.path(
        QStringLiteral("Applications/Lotbook 9.app/Contents/Resources/DesignTemplates"));
}

QString WorkbenchTest::writeDesign(const QString &title, Group group, const QByteArray &html,
                                   const QVariantMap &info)
{
    const QString folder = (group == Group::Custom ? customFolder() : builtinFolder()) + u'/' +
                           title + QStringLiteral(".designTemplate");
    support::writeFile(folder + QStringLiteral("/body.html"), html);
    QVariantMap values{
        {LSMDesignKeys::name, title},
        {LSMDesignKeys::identifier, LSMDesignCommands::identifierStringFromTitle(title)}};
    values.insert(info);
    PropertyList::write(values, PropertyList::Format::Xml, folder + QStringLiteral("/Info.plist"));
    return folder;
}

void WorkbenchTest::launch()
{
    AppController::initialize();
    const bool isFirstLaunch = !platform::UserDefaults::standardUserDefaults().isStored(
        QStringLiteral("mainWindowGeometry"));
    controller = std::make_unique<AppController>();
    controller->applicationDidFinishLaunching();
    if (isFirstLaunch)
        window()->resize(1000, 700);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    support::settle();
}

void WorkbenchTest::quit()
{
    window()->hide();
    controller.reset();
}

LSMDesignTemplate *WorkbenchTest::design(const QString &title) const
{
    return controller->designTemplateManager()->firstDesign(
        [&title](const LSMDesignTemplate &each) { return each.templateName() == title; });
}

LSMDesignTemplate *WorkbenchTest::select(const QString &title)
{
    for (int row = 0; outline()->indexForRow(row).isValid(); ++row) {
        const QModelIndex index = outline()->indexForRow(row);
        if (index.parent().isValid() && index.data().toString() == title) {
            outline()->scrollTo(index);
            QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {},
                              outline()->visualRect(index).center());
        }
    }
    support::settle();
    return selected() && selected()->templateName() == title ? selected() : nullptr;
}

LSMDesignTemplate *WorkbenchTest::selected() const
{
    return commands()->outlineViewController()->selectedDesign();
}

QStringList WorkbenchTest::titles() const
{
    QStringList result;
    for (int row = 0; outline()->indexForRow(row).isValid(); ++row) {
        const QModelIndex index = outline()->indexForRow(row);
        if (index.parent().isValid())
            result << index.data().toString();
    }
    return result;
}

bool WorkbenchTest::outlineShows(const QColor &color) const
{
    const QImage image = outline()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (std::find(line, line + image.width(), color.rgb()) != line + image.width())
            return true;
    }
    return false;
}

void WorkbenchTest::clickToolbarItem(const char *identifier)
{
    support::settle();
    for (ZQToolbarItem *item : commands()->toolbar()->items()) {
        if (item->itemIdentifier() == QLatin1StringView(identifier))
            QTest::mouseClick(commands()->toolbar()->widgetForAction(item), Qt::LeftButton);
    }
    support::settle();
}

bool WorkbenchTest::toolbarItemIsEnabled(const char *identifier)
{
    support::settle();
    for (ZQToolbarItem *item : commands()->toolbar()->items()) {
        if (item->itemIdentifier() == QLatin1StringView(identifier))
            return item->isEnabled();
    }
    ADD_FAILURE() << "no item " << identifier;
    return false;
}

void WorkbenchTest::clickMenuItem(const char *name)
{
    QAction *action = menuItem(name);
    ASSERT_TRUE(action) << name;
    QPointer<QWidget> focus = QApplication::focusWidget();
    for (QObject *object : action->associatedObjects()) {
        if (auto *menu = qobject_cast<QMenu *>(object)) {
            menu->popup(QPoint(10, 10));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            menu->hide();
        }
    }
    support::settle();
    giveFocus(focus);
    support::settle();
}

// The offscreen platform forgets the active window when a menu closes.
void WorkbenchTest::giveFocus(QWidget *widget)
{
    QApplication::setActiveWindow(window());
    if (widget && !QApplication::focusWidget())
        widget->setFocus();
}

void WorkbenchTest::pressShortcut(const char *name)
{
    support::settle();
    ASSERT_FALSE(menuItem(name)->shortcut().isEmpty()) << name;
    giveFocus(outline());
    QTest::keySequence(window(), menuItem(name)->shortcut());
    support::settle();
}

void WorkbenchTest::type(QWidget *into, const QString &text)
{
    into->setFocus();
    if (qobject_cast<QLineEdit *>(into))
        QTest::keyClick(into, Qt::Key_End);
    for (const QChar c : text)
        QTest::keyClick(into, c.toLatin1());
    support::settle();
}
