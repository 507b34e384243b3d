#include "avlor/tariffe/OfficialTariffs.h"

#include <cstdlib>
#include <map>
#include <set>
#include <utility>

#include "FileText.h"
#include "ShippedTariffFiles.h"
#include "TariffWriter.h"
#include "WriteTransaction.h"
#include "avlor/core/Error.h"
#include "avlor/core/FeeTables.h"
#include "avlor/data/Database.h"
#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffFileError.h"
#include "avlor/tariffe/TariffSources.h"

namespace avlor {

namespace {

namespace fs = std::filesystem;

constexpr const char* SourcesFileName = "FonteTariffe.csv";

struct ShippedTable {
    std::string fileName;
    TariffFile content;
};

std::vector<ShippedTable> readShippedTables(const OfficialTariffFiles& figures,
                                            const std::shared_ptr<Connection>& connection)
{
    std::vector<ShippedTable> tables;
    for (const FeeTable& table : feeTables()) {
        const std::string name(table.name);
        const auto file = figures.files.find(name + ".csv");
        if (file == figures.files.end())
            continue;
        try {
            tables.push_back(
                {file->first, readTariffFile(name, file->second, tariffe_detail::tableColumns(connection, name))});
        } catch (const TariffFileError& e) {
            throw e.inFile(file->first);
        }
    }
    return tables;
}

// Every shipped item has its source and every source names a shipped item,
// so that no figure enters the database without the record of where it
// comes from.
void requireMatchingSources(const std::vector<ShippedTable>& tables, const std::vector<TariffSource>& sources)
{
    std::set<std::pair<std::string, std::int32_t>> shipped;
    for (const ShippedTable& table : tables) {
        for (const TariffFileRow& row : table.content.rows)
            shipped.emplace(table.content.table, row.id);
    }
    std::set<std::pair<std::string, std::int32_t>> sourced;
    for (const TariffSource& source : sources) {
        if (!source.id)
            continue;
        if (!shipped.contains({source.table, *source.id}))
            throw TariffFileError(source.line, "Id",
                                  "la voce " + std::to_string(*source.id) + " di " + source.table +
                                      " non è tra le voci fornite",
                                  SourcesFileName);
        sourced.emplace(source.table, *source.id);
    }
    for (const ShippedTable& table : tables) {
        for (const TariffFileRow& row : table.content.rows) {
            if (!sourced.contains({table.content.table, row.id}))
                throw TariffFileError(
                    row.line, "Id", "la voce " + std::to_string(row.id) + " non ha la sua fonte in " + SourcesFileName,
                    table.fileName);
        }
    }
}

bool holdsShippedTables(const fs::path& folder)
{
    std::error_code code;
    return fs::is_regular_file(folder / SourcesFileName, code);
}

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

} // namespace

OfficialTariffFiles readOfficialTariffFiles(const fs::path& folder)
{
    if (!holdsShippedTables(folder))
        throw Error("Le tabelle delle tariffe fornite non sono in " + folder.string() + ": manca " + SourcesFileName);
    OfficialTariffFiles figures{folder.string(), {}};
    figures.files.emplace(SourcesFileName, tariffe_detail::readFileText(folder / SourcesFileName));
    for (const FeeTable& table : feeTables()) {
        const std::string fileName = std::string(table.name) + ".csv";
        if (fs::exists(folder / fileName))
            figures.files.emplace(fileName, tariffe_detail::readFileText(folder / fileName));
    }
    return figures;
}

OfficialTariffFiles officialTariffFiles()
{
    if (const std::string chosen = environment("AVLOR_TARIFFE_DIR"); !chosen.empty()) {
        if (!holdsShippedTables(chosen))
            throw Error("AVLOR_TARIFFE_DIR indica " + chosen + ", che non contiene " + SourcesFileName);
        return readOfficialTariffFiles(chosen);
    }
    OfficialTariffFiles figures{"le cifre incorporate nel programma", {}};
    for (const tariffe_detail::ShippedTariffFile& file : tariffe_detail::shippedTariffFiles())
        figures.files.emplace(std::string(file.name), std::string(file.text));
    return figures;
}

OfficialTariffsResult loadOfficialTariffs(const OfficialTariffFiles& figures)
{
    const auto sourcesFile = figures.files.find(SourcesFileName);
    if (sourcesFile == figures.files.end())
        throw Error("Manca " + std::string(SourcesFileName) + " tra le tabelle delle tariffe fornite (" +
                    figures.origin + ")");
    const auto connection = connectionFor(currentDatabase());
    const std::vector<ShippedTable> tables = readShippedTables(figures, connection);
    std::vector<TariffSource> sources;
    try {
        sources = readTariffSources(sourcesFile->second);
    } catch (const TariffFileError& e) {
        throw e.inFile(SourcesFileName);
    }
    requireMatchingSources(tables, sources);

    OfficialTariffsResult result;
    tariffe_detail::writeAtomically(connection, [&] {
        for (const ShippedTable& table : tables)
            result.tables.push_back(tariffe_detail::writeItems(connection, table.content));
        tariffe_detail::writeSources(connection, sources);
        result.sources = sources.size();
    });
    return result;
}

OfficialTariffsResult loadOfficialTariffs(const fs::path& folder)
{
    return loadOfficialTariffs(readOfficialTariffFiles(folder));
}

} // namespace avlor
