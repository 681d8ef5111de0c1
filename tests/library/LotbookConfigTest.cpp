#include "library/LibraryTestSupport.h"
#include "library/LSMLotbookConfig.h"
#include "platform/UserDefaults.h"

using platform::UserDefaults;

namespace {

const QString key = QStringLiteral("lotbookApplicationIdentifier");

void makeContainer(const support::TemporaryHome &home, const QString &version)
{
    QDir().mkpath(
        home.path(QStringLiteral("Library/Containers/com.quillbyte.%1/Data").arg(version)));
}

} // namespace

TEST(LotbookConfig, DefaultIsTheNewestContainerElseTheOldestVersion)
{
    const struct
    {
        QStringList containers;
        QString expected;
    } cases[] = {
        {{}, QStringLiteral("com.quillbyte.lotbook7")},
        {{QStringLiteral("lotbook7"), QStringLiteral("lotbook9")},
         QStringLiteral("com.quillbyte.lotbook9")},
        {{QStringLiteral("lotbook8"), QStringLiteral("lotbook7")},
         QStringLiteral("com.quillbyte.lotbook8")},
        {{QStringLiteral("lotbook10")}, QStringLiteral("com.quillbyte.lotbook7")},
    };
    for (const auto &[containers, expected] : cases) {
        const support::TemporaryHome home;
        for (const QString &version : containers)
            makeContainer(home, version);
        LSMLotbookConfig::registerDefaults();
        EXPECT_EQ(LSMLotbookConfig::lotbookApplicationIdentifier(), expected);
        EXPECT_FALSE(UserDefaults::standardUserDefaults().isStored(key));
    }
}

TEST(LotbookConfig, TheUsersChoiceOutranksWhatIsInstalled)
{
    const support::TemporaryHome home;
    makeContainer(home, QStringLiteral("lotbook9"));
    UserDefaults::standardUserDefaults().setObject(key, QStringLiteral("com.quillbyte.lotbook7"));
    LSMLotbookConfig::registerDefaults();
    EXPECT_EQ(LSMLotbookConfig::lotbookDesignTemplatesPath(),
              home.path(QStringLiteral("Library/Containers/com.quillbyte.lotbook7/Data/Library/"
                                       "Application Support/Lotbook/DesignTemplates")));
    EXPECT_EQ(LSMDesignTemplateManager().pathForCustomTemplates(),
              LSMLotbookConfig::lotbookDesignTemplatesPath());
}

TEST(LotbookConfig, ContainersStandInTheHomeUnlessMoved)
{
    const support::TemporaryHome home;
    qunsetenv("LAYOUTSMITH_CONTAINERS");
    EXPECT_EQ(LSMLotbookConfig::lotbookContainerFolderForBundleIdentifier(QStringLiteral("b")),
              home.path(QStringLiteral("Library/Containers/b/Data")));
    qputenv("LAYOUTSMITH_CONTAINERS", "/elsewhere/");
    EXPECT_EQ(LSMLotbookConfig::lotbookContainerFolderForBundleIdentifier(QStringLiteral("b")),
              QStringLiteral("/elsewhere/b/Data"));
}

TEST(LotbookConfig, AnotherCustomFolderMayBeChosen)
{
    const support::TemporaryHome home;
    for (const auto &[chosen, expected] :
         {std::pair(QStringLiteral("~/My Designs"), home.path(QStringLiteral("My Designs"))),
          std::pair(QStringLiteral("~"), QDir::cleanPath(home.path())),
          std::pair(QStringLiteral("/srv/x/../designs/"), QStringLiteral("/srv/designs"))}) {
        UserDefaults::standardUserDefaults().setObject(QStringLiteral("customTemplatesPath"),
                                                       chosen);
        EXPECT_EQ(LSMDesignTemplateManager().pathForCustomTemplates(), expected);
    }
}
