// Wine takes the time zone from the variable that Unix has for it, but the library of the programs reads that
// as a zone of its own kind, with the summer of another continent: it is told of none, and asks the system.
#include <cstdlib>
#include <ctime>

namespace
{
const bool asked = [] {
    _putenv("TZ=");
    _tzset();
    return true;
}();
} // namespace
