// layoutsmith-tidy MOST [KEY...]: reads HTML from standard input, as UTF-8, and writes what libtidy
// has to say about it to standard output: records of line, column, libtidy's own name (KEY) and
// text of the message, and its arguments. At most as many as asked for, in the order in which they
// are found, without those that are named; then how many more there are.
//
// A program of its own, because there are texts that libtidy dies of or never comes back from.

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <set>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <tidy/tidy.h>
#include <tidy/tidybuffio.h>
#include <utility>

namespace {

constexpr char recordEnd = '\x1e';
constexpr char fieldEnd = '\x1f';
constexpr rlim_t gigabyte = rlim_t(1) << 30;
constexpr rlim_t minute = 60;

struct Messages
{
    long left; ///< That may still be written.
    std::set<std::string> unwanted;
    std::string records = {};
    long leftOut = 0;

    void addField(const std::string &field) { records += field + fieldEnd; }

    void add(TidyMessage message)
    {
        const char *key = tidyGetMessageKey(message);
        const TidyReportLevel level = tidyGetMessageLevel(message);
        if ((level != TidyWarning && level != TidyError) || unwanted.contains(key))
            return;
        if (left-- <= 0) {
            ++leftOut;
            return;
        }
        addField(std::to_string(tidyGetMessageLine(message)));
        addField(std::to_string(tidyGetMessageColumn(message)));
        addField(key);
        addField(tidyGetMessageDefault(message));
        for (TidyIterator next = tidyGetMessageArguments(message); next;) {
            TidyMessageArgument argument = tidyGetNextMessageArgument(message, &next);
            if (tidyGetArgType(message, &argument) == tidyFormatType_STRING)
                addField(tidyGetArgValueString(message, &argument));
        }
        records += recordEnd;
    }
};

Bool TIDY_CALL receive(TidyMessage message)
{
    static_cast<Messages *>(tidyGetAppData(tidyGetMessageDoc(message)))->add(message);
    return no; // it goes nowhere else
}

void parse(std::string html, Messages &messages)
{
    TidyDoc document = tidyCreate();
    tidySetAppData(document, &messages);
    tidySetMessageCallback(document, receive);
    tidySetCharEncoding(document, "utf8");
    tidyOptSetValue(document, TidyBodyOnly, "yes");
    tidyOptSetBool(document, TidyDropEmptyElems, no);
    tidyOptSetValue(document, TidyInlineTags, "data slot"); // which are newer than it is
    tidyOptSetValue(document, TidyBlockTags, "search");
    TidyBuffer buffer;
    tidyBufInit(&buffer);
    tidyBufAttach(&buffer, reinterpret_cast<byte *>(html.data()), unsigned(html.size()));
    tidyParseBuffer(document, &buffer);
    tidyBufDetach(&buffer);
    tidyRelease(document);
}

/// It dies plainly, with whoever asked, and uses up nothing.
void limitItself()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto &[resource, most] :
         {std::pair(RLIMIT_AS, gigabyte), {RLIMIT_CPU, minute}, {RLIMIT_CORE, rlim_t(0)}}) {
        const rlimit limit{most, most};
        setrlimit(resource, &limit);
    }
}

} // namespace

int main(int count, char **arguments)
{
    if (count < 2)
        return EXIT_FAILURE;
    limitItself();
    Messages messages{std::atol(arguments[1]), {arguments + 2, arguments + count}};
    parse({std::istreambuf_iterator<char>(std::cin), {}}, messages);
    std::cout << messages.records << messages.leftOut << std::flush;
}
