#include "fuzz/FuzzTargets.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>

TEST(FuzzCorpus, SavedInputsHold)
{
    for (const fuzz::Target &target : fuzz::targets()) {
        const QDir folder(QStringLiteral(LAYOUTSMITH_SOURCE_DIR "/tests/data/fuzz/") +
                          QLatin1String(target.name));
        const auto names = folder.entryList(QDir::Files);
        EXPECT_FALSE(names.isEmpty()) << target.name;
        for (const QString &name : names)
            target.run(support::readFile(folder.filePath(name)));
    }
}
