#include "library/LibraryTestSupport.h"

#include "library/LSMDesignKeys.h"

#include <QElapsedTimer>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;

namespace {

constexpr int designs = 6;
constexpr int savesOfOneLife = 300;
constexpr int lives = 40;
constexpr double mostSeconds = 20;

// A text that tells by itself whether it is whole.
QString textOf(int design, int number)
{
    const QString line = u"design %1 version %2\n"_s.arg(design).arg(number);
    return line.repeated(1 + number % 700);
}

bool isWhole(const QByteArray &body)
{
    const QByteArray line = body.left(body.indexOf('\n') + 1);
    const QList<QByteArray> words = line.trimmed().split(' ');
    return words.size() == 4 && body == textOf(words[1].toInt(), words[3].toInt()).toUtf8();
}

// What the child does until it is killed.
void saveOverAndOver(LSMDesignTemplateManager &manager, int life)
{
    for (int save = 0; save < savesOfOneLife; ++save) {
        const int index = save % designs;
        const int number = life * savesOfOneLife + save;
        manager.enumerateDesignsUsingBlock([&](LSMDesignTemplate *design, bool &stop) {
            if (design->templateName() != u"D%1"_s.arg(index))
                return;
            stop = true;
            design->setHtmlSourceCode(textOf(index, number));
            design->templateDictionary()->setValue(u"number"_s, number);
            manager.saveDesignTemplate(design);
        });
    }
}

// True if the child was killed before it had made all its saves.
bool killAfter(std::chrono::microseconds delay, const std::function<void()> &work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    std::this_thread::sleep_for(delay);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

class SaveKills : public LibraryTest
{
};

} // namespace

TEST_F(SaveKills, AnyMomentLeavesWholeFilesAndEveryDesign)
{
    QStringList expected;
    for (int index = 0; index < designs; ++index) {
        expected.append(u"D%1"_s.arg(index));
        const QString path =
            writeBundle(custom, expected.last(), titled(expected.last()), textOf(index, 0).toUtf8(),
                        index % 2 ? PropertyList::Format::Xml : PropertyList::Format::Binary);
        writePicture(path + u'/' + pngThumbnail, Qt::red);
    }
    std::mt19937 random(13);
    QElapsedTimer timer;
    timer.start();
    int kills = 0;
    int leftovers = 0;
    int torn = 0;
    QSet<QByteArray> seen;
    for (int life = 1; life <= lives && timer.elapsed() < mostSeconds * 1000; ++life) {
        LSMDesignTemplateManager manager;
        ASSERT_EQ(titles(manager), expected);
        kills += killAfter(std::chrono::microseconds(random() % 250'000),
                           [&] { saveOverAndOver(manager, life); });
        for (int index = 0; index < designs; ++index) {
            const QString path = bundle(expected[index]);
            const QByteArray body = bodyOf(path);
            EXPECT_TRUE(isWhole(body)) << "life " << life << ", design " << index;
            EXPECT_EQ(infoOf(path).value(name), expected[index]) << "life " << life;
            EXPECT_FALSE(QImage(path + u'/' + pngThumbnail).isNull());
            torn += body != textOf(index, infoOf(path).value(u"number"_s).toInt()).toUtf8();
            seen.insert(body);
            leftovers += int(QDir(path).entryList({u"*.??????"_s}, QDir::Files).size());
        }
    }
    EXPECT_GE(kills, lives / 2);
    EXPECT_GT(int(seen.size()), designs) << "no save was ever done";
    RecordProperty("kills", kills);
    RecordProperty("versionsSeen", int(seen.size()));
    RecordProperty("newBodyBesideOldInfo", torn);
    RecordProperty("temporaryFiles", leftovers);
}
