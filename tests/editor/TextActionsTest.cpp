#include "editor/EditorFixture.h"

#include "support/TestSupport.h"
#include <QDir>

namespace {

class TextViewCommands : public support::EditorFixture
{
protected:
    /// Lines of "name value"; "beeps" says that the command does so.
    bool apply(const QStringList &lines)
    {
        for (const QString &line : lines) {
            const qsizetype blank = line.indexOf(' ');
            if (line != "beeps" &&
                !editor.setProperty(line.left(blank).toLatin1().constData(), line.mid(blank + 1)))
                return false;
        }
        return true;
    }

    /// "performDetabWithNumberOfSpaces 4", or a command without a number.
    bool perform(const QString &command)
    {
        const QByteArray name = command.section(' ', 0, 0).toLatin1();
        const qsizetype number = command.section(' ', 1).toLongLong();
        if (name == "performEntabWithNumberOfSpaces")
            view.performEntabWithNumberOfSpaces(number);
        else if (name == "performDetabWithNumberOfSpaces")
            view.performDetabWithNumberOfSpaces(number);
        else
            return QMetaObject::invokeMethod(&view, name.constData(), Q_ARG(QObject *, nullptr));
        return true;
    }
};

// Each folder holds the command with its settings, the text before and the text after it.
TEST_F(TextViewCommands, DoWhatTheirFoldersSay)
{
    const QDir cases(LAYOUTSMITH_SOURCE_DIR "/tests/data/textactions");
    const QStringList names = cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_GT(names.size(), 20);
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        const QDir folder(cases.filePath(name));
        const auto read = [&](const char *file) {
            return QString::fromUtf8(support::readFile(folder.filePath(file)));
        };
        const QStringList command = read("command").trimmed().split('\n');
        editor.resetDefaults();
        ASSERT_TRUE(apply(command.mid(1)));
        setMarked(read("before"));
        const QString before = view.string();
        ASSERT_TRUE(perform(command[0]));
        EXPECT_EQ(marked(), read("after"));
        EXPECT_EQ(takeBeeps(), command.contains("beeps"));
        expectOneStepSince(before);
    }
}

class SecondSelectionRefused : public platform::TextViewDelegate
{
public:
    bool shouldChangeTextInRanges(platform::TextView *,
                                  const std::vector<platform::TextRange> &ranges,
                                  const QStringList &) override
    {
        return ranges[0].location != 2;
    }
};

TEST_F(TextViewCommands, ARefusalLeavesItsSelectionAlone)
{
    SecondSelectionRefused delegate;
    setMarked("‹a›-‹b›-‹c›");
    editor.setTextViewDelegate(&delegate);
    view.uppercaseCharacters();
    editor.setTextViewDelegate(nullptr);
    EXPECT_EQ(marked(), "‹A›-‹b›-‹C›");
}

class EmptiesWhatIsChanged : public platform::TextViewDelegate
{
public:
    void textDidChange(platform::TextView *view) override
    {
        if (view->textStorage()->length() > 0)
            view->changeText({0, view->textStorage()->length()}, {});
    }
};

TEST_F(TextViewCommands, EndWhenTheDelegateEditsBetweenTwoSelections)
{
    EmptiesWhatIsChanged delegate;
    setMarked("‹a›-‹b›-‹c›");
    editor.setTextViewDelegate(&delegate);
    EXPECT_NO_THROW(view.uppercaseCharacters());
    editor.setTextViewDelegate(nullptr);
    EXPECT_EQ(marked(), "¦");
    view.undo();
    EXPECT_EQ(view.string(), "a-b-c");
}

TEST_F(TextViewCommands, NothingChangesWhatMayOnlyBeRead)
{
    view.setEditable(false);
    for (const char *command :
         {"shiftRight", "shiftLeft", "prepareForXML", "commentOrUncomment", "closeTag",
          "removeLineEndings", "uppercaseCharacters", "capitalizeWord", "transpose"}) {
        setMarked("<a>‹  b\n&›¦");
        QMetaObject::invokeMethod(&view, command);
        EXPECT_EQ(view.string(), "<a>  b\n&") << command;
    }
}

} // namespace
