#include "elfData.h"

#include <cstring>
#include <elf.h>

namespace {

// A record of the file; false when it does not lie inside.
template<typename T>
bool get(std::string_view file, unsigned long long offset, T& record)
{
    if (offset > file.size() || file.size() - offset < sizeof(T))
        return false;
    std::memcpy(&record, file.data() + offset, sizeof(T));
    return true;
}

template<typename Section>
bool isReadOnlyData(Section const& section)
{
    auto const flags = section.sh_flags & (SHF_ALLOC | SHF_WRITE | SHF_EXECINSTR);
    return section.sh_type == SHT_PROGBITS && flags == SHF_ALLOC;
}

template<typename Header, typename Section>
bool findSections(std::string_view file, std::vector<std::string_view>& found)
{
    Header header;
    if (!get(file, 0, header) || header.e_shnum == 0 || header.e_shentsize != sizeof(Section))
        return false;
    for (unsigned int i = 0; i < header.e_shnum; ++i) {
        Section section;
        if (!get(file, header.e_shoff + i * sizeof(Section), section))
            return false;
        if (!isReadOnlyData(section))
            continue;
        if (section.sh_offset > file.size() || section.sh_size > file.size() - section.sh_offset)
            return false;
        found.push_back(file.substr(static_cast<std::size_t>(section.sh_offset),
                                    static_cast<std::size_t>(section.sh_size)));
    }
    return true;
}

} // namespace

bool isElf(std::string_view file)
{
    return file.size() > EI_DATA && file.substr(0, SELFMAG) == ELFMAG && file[EI_DATA] == ELFDATA2LSB;
}

std::vector<std::string_view> readOnlyData(std::string_view file)
{
    std::vector<std::string_view> found;
    bool const isGood = file[EI_CLASS] == ELFCLASS64 ? findSections<Elf64_Ehdr, Elf64_Shdr>(file, found)
                                                     : findSections<Elf32_Ehdr, Elf32_Shdr>(file, found);
    return isGood ? found : std::vector<std::string_view>{file};
}
