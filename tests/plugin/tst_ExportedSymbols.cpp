// The plug-in module must show the host its two entry points and nothing
// else: every other exported symbol could clash with the host's or another
// plug-in's. Reads the module's dynamic symbol table directly.
#include <QFile>
#include <QtTest>

#include <elf.h>

#include <cstring>

namespace {

template <class T>
bool readAt(const QByteArray& image, quint64 offset, T& value)
{
    if (offset > quint64(image.size()) || quint64(image.size()) - offset < sizeof(T))
        return false;
    std::memcpy(&value, image.constData() + offset, sizeof(T));
    return true;
}

// Names of the symbols a 64-bit ELF file defines in its dynamic symbol table
// with global, weak or unique binding; empty and ok=false when it cannot be read.
QStringList definedDynamicSymbols(const QString& path, bool* ok)
{
    *ok = false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray image = file.readAll();
    Elf64_Ehdr header;
    if (!readAt(image, 0, header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 ||
        header.e_ident[EI_CLASS] != ELFCLASS64)
        return {};

    QStringList names;
    for (int i = 0; i < header.e_shnum; ++i) {
        Elf64_Shdr section;
        if (!readAt(image, header.e_shoff + quint64(i) * header.e_shentsize, section))
            return {};
        if (section.sh_type != SHT_DYNSYM)
            continue;
        Elf64_Shdr strings;
        if (!readAt(image, header.e_shoff + quint64(section.sh_link) * header.e_shentsize, strings))
            return {};
        const quint64 count = section.sh_entsize ? section.sh_size / section.sh_entsize : 0;
        for (quint64 s = 0; s < count; ++s) {
            Elf64_Sym symbol;
            if (!readAt(image, section.sh_offset + s * section.sh_entsize, symbol))
                return {};
            const int binding = ELF64_ST_BIND(symbol.st_info);
            if (symbol.st_shndx == SHN_UNDEF ||
                (binding != STB_GLOBAL && binding != STB_WEAK && binding != STB_GNU_UNIQUE))
                continue;
            if (symbol.st_name >= strings.sh_size)
                return {};
            names << QString::fromLatin1(image.constData() + strings.sh_offset + symbol.st_name);
        }
    }
    *ok = true;
    return names;
}

} // namespace

class tst_ExportedSymbols : public QObject
{
    Q_OBJECT

private slots:
    void onlyTheEntryPointsAreExported();
};

void tst_ExportedSymbols::onlyTheEntryPointsAreExported()
{
    bool ok = false;
    QStringList names = definedDynamicSymbols(QStringLiteral(KALDEFAULTS_MODULE_PATH), &ok);
    QVERIFY2(ok, "the plug-in module could not be read as a 64-bit ELF file");
    names.sort();
    QCOMPARE(names, (QStringList{"loadPlugin", "unloadPlugin"}));
}

QTEST_GUILESS_MAIN(tst_ExportedSymbols)
#include "tst_ExportedSymbols.moc"
