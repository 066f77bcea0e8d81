#include "ImageFile.h"

#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
using win32::ImageFile;
using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Section = ElfW(Shdr);

#if defined(__x86_64__)
constexpr unsigned thisMachine = EM_X86_64;
#elif defined(__aarch64__)
constexpr unsigned thisMachine = EM_AARCH64;
#else
#error "name the machine number of this processor's modules here"
#endif

bool readHeader(const ImageFile& file, Header& header)
{
    if (!file.read(0, header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return false;
    const bool sameKind = header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_ident[EI_DATA] == ELFDATA2LSB;
    return sameKind && header.e_type == ET_DYN && header.e_machine == thisMachine;
}

bool liesIn(const ImageFile& file, std::uint64_t offset, std::uint64_t size)
{
    return offset <= file.size() && size <= file.size() - offset;
}

bool readSection(const ImageFile& file, const Header& header, unsigned index, Section& section)
{
    return index < header.e_shnum && header.e_shentsize == sizeof(Section) &&
           file.read(header.e_shoff + std::uint64_t{index} * sizeof(Section), section);
}

// Compares with the terminator, so that a name that goes on is not taken.
bool isNamed(const ImageFile& file, const Section& names, const Section& section, const char* name)
{
    std::string read(std::strlen(name) + 1, '?');
    const bool inTable = section.sh_name <= names.sh_size && read.size() <= names.sh_size - section.sh_name;
    return inTable && liesIn(file, names.sh_offset, names.sh_size) &&
           file.read(names.sh_offset + section.sh_name, read.data(), read.size()) &&
           std::memcmp(read.data(), name, read.size()) == 0;
}
} // namespace

namespace win32
{
ImageFile::ImageFile(const std::string& hostPath)
    : descriptor_(open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat status {
    };
    if (isOpen() && fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode))
        size_ = static_cast<std::uint64_t>(status.st_size);
}

ImageFile::~ImageFile()
{
    if (isOpen()) close(descriptor_);
}

bool ImageFile::read(std::uint64_t offset, void* target, std::size_t size) const
{
    if (!liesIn(*this, offset, size)) return false;
    auto* bytes = static_cast<char*>(target);
    while (size > 0) {
        const ssize_t got = pread(descriptor_, bytes, size, static_cast<off_t>(offset));
        if (got <= 0) return false;
        bytes += got;
        offset += static_cast<std::uint64_t>(got);
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

bool isLoadableModule(const ImageFile& file)
{
    Header header{};
    if (!readHeader(file, header) || header.e_phentsize != sizeof(Segment)) return false;
    bool loads = false;
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        Segment segment{};
        if (!file.read(header.e_phoff + std::uint64_t{i} * sizeof segment, segment)) return false;
        // The pages of a segment beyond the end of the file would end the program when they are touched.
        if (segment.p_type == PT_LOAD && !liesIn(file, segment.p_offset, segment.p_filesz)) return false;
        loads = loads || segment.p_type == PT_LOAD;
    }
    return loads;
}

std::vector<std::uint8_t> elfSection(const ImageFile& file, const char* name, std::size_t largest)
{
    Header header{};
    Section names{}, section{};
    if (!readHeader(file, header) || !readSection(file, header, header.e_shstrndx, names)) return {};
    for (unsigned i = 0; readSection(file, header, i, section); ++i) {
        if (!isNamed(file, names, section, name) || section.sh_size > largest) continue;
        std::vector<std::uint8_t> content(section.sh_size);
        return file.read(section.sh_offset, content.data(), content.size()) ? content
                                                                            : std::vector<std::uint8_t>();
    }
    return {};
}
} // namespace win32
