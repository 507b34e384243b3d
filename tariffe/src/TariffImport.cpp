#include "avlor/tariffe/TariffImport.h"

#include "FileText.h"
#include "TariffWriter.h"
#include "WriteTransaction.h"
#include "avlor/core/FeeTables.h"
#include "avlor/data/Database.h"
#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor {

TariffImportResult importTariffText(std::string_view table, std::string_view text, const std::string& source)
{
    const std::string name(requireFeeTable(table).name);
    const auto connection = connectionFor(currentDatabase());
    const TariffFile file = readTariffFile(name, text, tariffe_detail::tableColumns(connection, name));
    TariffImportResult result;
    tariffe_detail::writeAtomically(connection, [&] {
        result = tariffe_detail::writeItems(connection, file);
        std::vector<TariffSource> sources;
        sources.reserve(file.rows.size());
        for (const TariffFileRow& row : file.rows)
            sources.push_back({row.line, name, row.id, source, std::nullopt});
        tariffe_detail::writeSources(connection, sources);
    });
    return result;
}

TariffImportResult importTariffFile(std::string_view table, const std::filesystem::path& path)
{
    const std::string text = tariffe_detail::readFileText(path);
    const std::string fileName = path.filename().string();
    try {
        return importTariffText(table, text, "File importato: " + fileName);
    } catch (const TariffFileError& e) {
        throw e.inFile(fileName);
    }
}

} // namespace avlor
