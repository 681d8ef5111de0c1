#include "app/LSMApplication.h"

#include "kit/ui/ApplicationStyle.h"
#include "platform/Log.h"

#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

LSMApplication::LSMApplication(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("Layoutsmith"));
    setApplicationDisplayName(QString());
    setDesktopFileName(QStringLiteral("com.quillbyte.layoutsmith"));
    setWindowIcon(QIcon(QStringLiteral(":/layoutsmith/images/AppIcon.svg")));
    zq::installApplicationStyle();
}

bool LSMApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &exception) {
        platform::log("an event was not handled: %@", exception.what());
        return false;
    }
}

void LSMInstallTranslations()
{
    const QString ours = QStringLiteral(":/layoutsmith/translations");
    const QString qts = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const auto &[name, folder] : {std::pair(QStringLiteral("qtbase"), qts),
                                       std::pair(QStringLiteral("layoutsmith"), ours)}) {
        auto *translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(QLocale(), name, QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
    }
}
