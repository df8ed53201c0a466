#include "csv/CsvFields.h"

bool isAddressPart(CsvField field) { return field >= CsvField::Street && field <= CsvField::Country; }
