#pragma once

#include <QString>

class AppController;

/// Walks through every tab of one custom and one built-in design, light and dark, and writes a PNG
/// of each into `folder`, which is made. Prints the path of each picture. Returns the exit status:
/// 1 if a picture could not be written. Needs the launched application; turns the event loop
/// itself.
int LSMRunTour(AppController &application, const QString &folder);
