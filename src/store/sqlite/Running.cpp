#include "store/sqlite/Running.h"

#include "store/Raising.h"

Running::Running(Statement &statement, const std::vector<StoreValue> &values) : statement_(statement)
{
    if (statement_.parameterCount() != static_cast<int>(values.size()))
        raising::failure(QStringLiteral("%1 values for %2 parameters")
                             .arg(values.size())
                             .arg(statement_.parameterCount()));
    for (std::size_t i = 0; i < values.size(); ++i)
        statement_.bind(static_cast<int>(i) + 1, values[i]);
}
