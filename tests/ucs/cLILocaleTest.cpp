#include "nel_core/ucs/cLILocale.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "nel_core/pi/cAbstractNELApp.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/rmi/cUnconnectedSignalException.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/ucs/cTranslationFiles.h"

namespace {

using namespace ntest;
using nucs::cLILocale;
using nucs::cLIMessage;
using nucs::cString;

using tSigUntranslated = nrmi::localSignal2<piVoid, cLILocale const&, cLIMessage const&>;

class cLILocaleTest : public cTranslationFiles { };

// Writes down what it is told.
class cListener : public nrmi::cConnectable {
public:
    piVoid sltChanged()
    {
        ++miChanged;
        return piVoid();
    }
    piVoid sltUntranslated(cLILocale const& locale, cLIMessage const& message)
    {
        cString shown;
        message.untranslated(shown);
        msLog += text(locale.debugName()) + ": " + text(shown) + "\n";
        return piVoid();
    }

    unsigned int miChanged = 0;
    std::string msLog;
};

TEST_F(cLILocaleTest, asksItsParents)
{
    cLILocale top("top");
    cLILocale middle("middle");
    cLILocale low("low");
    middle.link(&top);
    low.link(&middle);
    top.translator().addTranslation("a", "top a");
    top.translator().addTranslation("b %x%", "top b %x%");
    low.translator().addTranslation("a", "low a");
    EXPECT_EQ(text(low.translate("$MTR$a")), "low a");
    EXPECT_EQ(text(low.translate(cLIMessage() << "$MTR$b %x%" << 7)), "top b 7");
    EXPECT_EQ(text(low.translate("c \\% %x%")), "c % ??\?");

    cListener listener;
    top.sigUntranslated = nstd::tAutoPtr<tSigUntranslated>(new tSigUntranslated);
    cString out;
    raisedBy<nrmi::cUnconnectedSignalException>([&] { low.translate("c", out, nullptr); });
    top.sigUntranslated->connect(nrmi::slot(&listener, &cListener::sltUntranslated));
    EXPECT_TRUE(low.translate("a", out, nullptr));
    EXPECT_FALSE(low.translate("$MTR$c", out, nullptr));
    EXPECT_EQ(text(out), "c");
    EXPECT_FALSE(middle.translate("d", out, &low));
    EXPECT_FALSE(top.translate("e", out, &low));
    EXPECT_FALSE(top.translate("f", out, nullptr));
    EXPECT_EQ(listener.msLog, "middle: c\nmiddle: d\nlow: e\ntop: f\n");
    middle.link(nullptr);
    EXPECT_EQ(text(low.translate("b")), "b");
    EXPECT_EQ(text(middle.translate("a")), "a");
}

TEST_F(cLILocaleTest, linksFormNoRing)
{
    cLILocale a("a");
    cLILocale b("b");
    cLILocale c("c");
    b.link(&a);
    c.link(&b);
    c.translator().addTranslation("only c", "!");
    for (auto* const locale : {&a, &b, &c})
        a.link(locale);
    b.link(&b);
    EXPECT_EQ(text(b.translate("only c")), "only c");
    a.translator().addTranslation("only a", "a!");
    EXPECT_EQ(text(b.translate("only a")), "a!") << "a refused link leaves the old one";
}

TEST_F(cLILocaleTest, passesChangesDown)
{
    cLILocale a("a");
    cLILocale b(nullptr);
    cLILocale other("other");
    cListener listenerB;
    cListener listenerOther;
    b.sigLocaleChanged.connect(nrmi::slot(&listenerB, &cListener::sltChanged));
    other.sigLocaleChanged.connect(nrmi::slot(&listenerOther, &cListener::sltChanged));
    {
        cLILocale c("c");
        b.link(&a);
        c.link(&b);
        b.link(&a); // the former link is gone
        a.sigLocaleChanged();
        EXPECT_EQ(listenerB.miChanged, 1U);
    }
    b.swap(other);
    a.sigLocaleChanged();
    EXPECT_EQ(listenerB.miChanged, 1U);
    EXPECT_EQ(listenerOther.miChanged, 1U) << "the link has gone over to the other";
    other.link(nullptr);
    a.sigLocaleChanged();
    EXPECT_EQ(listenerOther.miChanged, 1U);
    EXPECT_EQ(text(b.debugName()), "other");
}

TEST_F(cLILocaleTest, readsAllStatements)
{
    std::filesystem::create_directory(mDirectory / "sub");
    write("sub/story.txt", "a \"story\"\r\nwith \\ all\n");
    write("sub/more.tr", "\"m\" = \"more\"; Name = \"More\" \"s\" = fromFile ( \"story.txt\" )");
    write("empty", "");
    auto const file = write("main.tr", "// Name = \"no\"\n"
                                       "bare \xC3\xBC = ( ) \"k\xC3\xBC\"=\"v\\\\!\\\"\"\n"
                                       "include \"sub/more.tr\"\n"
                                       "Name = \"Main\"\nFlag=\"de.png\" \"e\"=fromFile(\"empty\")");
    cLILocale locale("debug");
    cLILocale parent("parent");
    locale.link(&parent);
    parent.translator().addTranslation("p", "parent");
    locale.loadFromFile(file);
    EXPECT_EQ(text(locale.name()), "Main");
    EXPECT_EQ(text(locale.flag()), (mDirectory / "main.tr/de.png").string());
    EXPECT_EQ(text(locale.fileName()), text(file));
    EXPECT_EQ(text(locale.debugName()), "");
    EXPECT_EQ(text(locale.translate("k?")), "v!\"") << "an escape of the message";
    EXPECT_EQ(text(locale.translate("m")), "more");
    EXPECT_EQ(text(locale.translate("s")), "a \"story\"\r\nwith  all\n");
    EXPECT_EQ(text(locale.translator().hasTranslation("s")->translation), "a \"story\"\r\nwith \\ all\n");
    EXPECT_EQ(text(locale.translate("e")), "");
    EXPECT_EQ(text(locale.translate("p")), "parent") << "the link stays";
    write("main.tr", "Name = \"Again\"");
    locale.loadFromFile(locale.fileName());
    EXPECT_EQ(text(locale.name()), "Again");
    EXPECT_EQ(text(locale.translate("m")), "m");
    locale.clear();
    EXPECT_EQ(text(locale.name() + locale.fileName() + locale.flag()), "");
    EXPECT_EQ(text(locale.translate("p")), "parent");
}

TEST_F(cLILocaleTest, aFailedLoadNamesThePlaceAndChangesNothing)
{
    struct cRow {
        char const *name, *text, *line, *cause;
    };
    cLILocale locale("debug");
    locale.loadFromFile(write("old.tr", "Name=\"n\" Flag=\"f\" \"k\"=\"v\""));
    locale.setDebugName("debug");
    write("good.tr", "Name = \"other\"");
    write("bad.tr", "\n\n\"");
    write("bytes", "\xC3");
    std::string const kQuote = "\" expected!\n";
    for (auto const& row : {
             cRow{"no = after a key", "Name = \"x\"\r\n\"k\" \"v\"\r\n", "1", "\"=\" expected!\n"},
             {"no = after Name", "\r\rName \"x\"", "2", "\"=\" expected!\n"},
             {"a keyword inside of a word", "xFlagless", "0", "\"=\" expected!\n"},
             {"no = after Flag", "Flag", "0", "\"=\" expected!\n"},
             {"nothing after include", "include =", "0", kQuote.c_str()},
             {"no value", "\n\"k\" = ", "1", kQuote.c_str()},
             {"an empty value", "\"k\" = \"\"", "0", kQuote.c_str()},
             {"an escape at the end", "\"k\" = \"\\", "0", kQuote.c_str()},
             {"another word", "\"k\" = fromFiles(\"x\")", "0", kQuote.c_str()},
             {"no (", "\"k\" = fromFile \"x\"", "0", "\"(\" expected!\n"},
             {"no quote", "\"k\" = fromFile(x)", "0", kQuote.c_str()},
             {"no file name", "\"k\" = fromFile(\"\")", "0", "Filename expected!\n"},
             {"a keyword as file name", "\"k\" = fromFile(\"Name\")", "0", "Filename expected!\n"},
             {"the end in place of a name", "\"k\" = fromFile(\"", "0", "Filename expected!\n"},
             {"two words", "\"k\" = fromFile(\"a b\")", "0", kQuote.c_str()},
             {"no )", "\"k\" = fromFile(\"a\"", "0", "\")\" expected!\n"},
             {"a value without a file", "\n\"k\" = fromFile(\"none\")", "1",
              "Unable to open file \"DIR/none\"!\n"},
             {"bad bytes in a value", "\"k\" = fromFile(\"bytes\")", "0", "Unicode decode error!\n"},
             {"no included file", "include \"none\"", "0",
              "Unable to read translation file (DIR/none)!\nUnable to open file \"DIR/none\"!\n"},
             {"an error in an included file", "include \"good.tr\"\ninclude \"bad.tr\"", "1",
              "Unable to parse translation file (DIR/bad.tr) line 2!\n\" expected!\n"},
         }) {
        SCOPED_TRACE(row.name);
        auto const file = write("f.tr", row.text);
        auto const chain = chainRaised([&] { locale.loadFromFile(file); });
        auto const expected =
            std::string("Unable to parse translation file (DIR/f.tr) line ") + row.line + "!\n" + row.cause;
        EXPECT_EQ(chain.substr(0, expected.size()), expected);
        EXPECT_EQ(text(locale.fileName()), text(path("old.tr")));
        EXPECT_EQ(text(locale.name()), "n");
        EXPECT_EQ(text(locale.translate("k")), "v");
        EXPECT_EQ(text(locale.debugName()), "debug");
    }
    EXPECT_EQ(chainRaised([&] {
                  locale.loadFromFile(path("none"));
              }).rfind("Unable to read translation file (DIR/none)!\nUnable to open file \"DIR/none\"!\n", 0),
              0U);
}

TEST_F(cLILocaleTest, limitsTheFilesOfALoad)
{
    std::string const kTooDeep = "Maximum include depth exceeded!\n";
    cLILocale locale("x");
    auto const file = write("loop.tr", "\ninclude \"loop.tr\"");
    std::string nested;
    for (unsigned int level = 0; level < 10; ++level)
        nested += "Unable to parse translation file (DIR/loop.tr) line 1!\n";
    EXPECT_EQ(chainRaised([&] { locale.loadFromFile(file); }), nested + kTooDeep);
    EXPECT_EQ(text(locale.fileName()), "");

    unsigned int depth = 9;
    write("two.tr", "\"k\"=\"v\" include \"one.tr\"");
    write("one.tr", "\"l\"=\"w\"");
    EXPECT_EQ(chainRaised([&] { locale.loadFromFile(path("two.tr"), locale, depth); }),
              "Unable to parse translation file (DIR/two.tr) line 0!\n" + kTooDeep);
    EXPECT_EQ(depth, 9U);
    depth = 8;
    locale.loadFromFile(path("two.tr"), locale, depth);
    EXPECT_EQ(depth, 8U);
    EXPECT_EQ(text(locale.translate("k") + locale.translate("l")), "vw");
    EXPECT_EQ(text(locale.fileName()), text(path("two.tr")));

    std::string many;
    for (unsigned int i = 0; i < 999; ++i)
        many += i % 2 == 0 ? "include \"one.tr\"\n" : "\"k\" = fromFile(\"one.tr\")\n";
    locale.loadFromFile(write("many.tr", many));
    EXPECT_EQ(chainRaised([&] { locale.loadFromFile(write("many.tr", many + "include \"one.tr\"")); }),
              "Unable to parse translation file (DIR/many.tr) line 999!\n" + kTooDeep);
}

TEST_F(cLILocaleTest, aLoadWithoutMemoryChangesNothing)
{
    if (!cFailingMemory::isAvailable())
        GTEST_SKIP();
    write("story", "text");
    write("more.tr", "\"b\" = fromFile(\"story\")");
    auto const file = write("new.tr", "Name=\"new\" Flag=\"f\" \"a\"=\"1\" include \"more.tr\"");
    cLILocale parent("parent");
    cLILocale locale("old");
    locale.link(&parent);
    failEachRequest(
        [&] {
            locale.loadFromFile(file);
            locale.setDebugName("new");
        },
        [&] {
            bool const isNew = text(locale.name()) == "new";
            EXPECT_EQ(text(locale.fileName()), isNew ? text(file) : "");
            EXPECT_EQ(text(locale.translate("b")), isNew ? "text" : "b");
        });
    EXPECT_EQ(text(locale.debugName()), "new");
}

TEST_F(cLILocaleTest, theSystemTranslatesWhatIsShown)
{
    auto& locale = npi::system().locale;
    EXPECT_EQ(text(locale.debugName()), "");
    auto const message = cLIMessage() << "$MTR$File %f%"
                                      << "x";
    {
        cDebugRecorder recorder;
        recorder << message << "\n";
        locale.translator().addTranslation("File %f%", "Datei %f%");
        recorder << message << "\n";
        EXPECT_EQ(recorder.text(), "File x\nDatei x\n");
    }
    nstd::cRuntimeException error(message);
    error.link(nstd::cBugException(message));
    cString out;
    error.createMessage(out, "; ", nstd::cAbstractException::mfHistory, &locale);
    EXPECT_EQ(text(out), "Datei x; Datei x");
    error.createMessage(out, "; ", nstd::cAbstractException::mfHistory, nullptr);
    EXPECT_EQ(text(out), "File x; File x");
}

TEST_F(cLILocaleTest, messagesAreWrittenWithoutASystem)
{
    class cText : public npi::cAbstractOut {
    public:
        void printChar(char c) override { msText += c; }
        std::string msText;
    };
    npi::cSystem::cleanup();
    cText out;
    out << (cLIMessage() << "$MTR$a");
    EXPECT_EQ(out.msText, "a");
    cAbstractNELApp app;
    npi::cSystem::setApp(&app); // ignored without a system
    raisedBy<nstd::cBugException>([] { npi::cSystem::app(); });
}

} // namespace
