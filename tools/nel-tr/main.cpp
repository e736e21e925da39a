#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cTranslationCheck.h"
#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/pi/cSystem.h"
#include "scan.h"

namespace {

constexpr char kUsage[] = "usage: nel-tr scan FILE...\n"
                          "       nel-tr check [--keys LIST] FILE...\n"
                          "       nel-tr stub --keys LIST [FILE...]\n"
                          "scan lists the message keys in sources and compiled objects, check looks for "
                          "faults in translation files,\n"
                          "stub writes entries for the keys that no FILE translates. LIST is what scan "
                          "writes; - stands for standard\n"
                          "input.\n"
                          "  --help  show this text\n";

enum Status : int {
    stClean = 0,
    stFindings = 1,
    stUsage = 2,
};

using tArguments = std::vector<std::string>;
using tList = std::optional<std::string>; // the file with the keys

// Keeps the debug output still while it lives: a damaged file is no fault of the program.
class cSilence : public npi::cAbstractOut {
public:
    cSilence() { npi::system().debug.link(this); }
    ~cSilence() override { npi::system().debug.link(nullptr); }
    void printChar(char) override { }
};

bool readFile(std::string const& path, std::string& content)
{
    std::ifstream file;
    if (path != "-")
        file.open(path, std::ios::binary);
    auto& in = path == "-" ? std::cin : file;
    char piece[64 * 1024];
    content.clear();
    while (in.read(piece, sizeof(piece)) || in.gcount() != 0)
        content.append(piece, static_cast<std::size_t>(in.gcount()));
    bool const isRead = (path == "-" || file.is_open()) && !in.bad();
    if (!isRead)
        std::cerr << "nel-tr: cannot read " << path << "\n";
    return isRead;
}

// Takes "--keys LIST" out of the arguments; false when nothing stands behind it.
bool takeKeys(tArguments& arguments, tList& list)
{
    auto const option = std::find(arguments.begin(), arguments.end(), "--keys");
    if (option == arguments.end())
        return true;
    if (arguments.end() - option < 2)
        return false;
    list = option[1];
    arguments.erase(option, option + 2);
    return true;
}

bool isOption(std::string const& argument)
{
    return argument.size() > 1 && argument[0] == '-';
}

bool readKeys(std::string const& path, cKeyList& keys)
{
    std::string text;
    bool const isRead = readFile(path, text);
    keys.addLines(text);
    return isRead;
}

int usage()
{
    std::cerr << kUsage;
    return stUsage;
}

int scan(tArguments const& files, tList const& list)
{
    if (files.empty() || list)
        return usage();
    int status = stClean;
    cKeyList keys;
    for (auto const& path : files) {
        std::string content;
        if (readFile(path, content))
            scanFile(content, keys);
        else
            status = stFindings;
    }
    std::cout << keys.text();
    return status;
}

int check(tArguments const& files, tList const& list)
{
    if (files.empty())
        return usage();
    cKeyList keys;
    if (list && !readKeys(*list, keys))
        return stFindings;
    int status = stClean;
    for (auto const& path : files) {
        cTranslationCheck file(path);
        if (list && file.isRead())
            file.compare(keys);
        for (auto const& finding : file.findings()) {
            std::cout << finding << "\n";
            status = stFindings;
        }
    }
    return status;
}

int stub(tArguments const& paths, tList const& list)
{
    if (!list)
        return usage();
    cKeyList keys;
    if (!readKeys(*list, keys))
        return stFindings;
    std::vector<cTranslationCheck> files;
    for (auto const& path : paths) {
        files.emplace_back(path);
        if (files.back().isRead())
            continue;
        std::cerr << files.back().findings().front() << "\n";
        return stFindings;
    }
    int status = stClean;
    for (auto const& key : keys.keys()) {
        bool isMissing = true;
        for (auto const& file : files)
            isMissing = isMissing && !file.has(key);
        auto const entry = isMissing ? cTranslationCheck::stub(key) : "";
        std::cout << entry;
        if (!isMissing || !entry.empty())
            continue;
        std::cerr << "nel-tr: a translation file cannot hold this key: " << key << "\n";
        status = stFindings;
    }
    return status;
}

int run(tArguments arguments)
{
    if (arguments == tArguments{"--help"}) {
        std::cout << kUsage;
        return stClean;
    }
    if (arguments.empty())
        return usage();
    auto const command = arguments.front();
    arguments.erase(arguments.begin());
    tList list;
    if (!takeKeys(arguments, list) || std::any_of(arguments.begin(), arguments.end(), isOption))
        return usage();
    cSilence const silence;
    if (command == "scan")
        return scan(arguments, list);
    if (command == "check")
        return check(arguments, list);
    return command == "stub" ? stub(arguments, list) : usage();
}

} // namespace

int main(int argc, char** argv)
{
    try {
        int const status = run(tArguments(argv + 1, argv + argc));
        if (std::cout.flush())
            return status;
        std::cerr << "nel-tr: cannot write\n";
    } catch (std::exception const& error) {
        std::cerr << "nel-tr: " << error.what() << "\n";
    }
    return stFindings;
}
