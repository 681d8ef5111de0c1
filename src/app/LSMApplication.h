#pragma once

#include <QApplication>

/// The application object: names, icon, look, language, and the last line of defence, which logs
/// what an event handler throws and goes on.
class LSMApplication : public QApplication
{
    Q_OBJECT

public:
    LSMApplication(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
};

/// Loads the translations for the user's language, the program's and Qt's. For the window and for
/// commands alike, after the application object was made.
void LSMInstallTranslations();
