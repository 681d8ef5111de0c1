#pragma once

#include <QHash>
#include <QString>

class LSMDesignTemplate;

/// What a design's own properties put into a listing as they are set at first, by the names that
/// the HTML has for them: texts as they are, numbers in digits, a switch as "1" or nothing, a
/// colour as "#b5633f". What has no such form is not among them. Any thread.
QHash<QString, QString> LSMPropertyValues(const LSMDesignTemplate &design);
