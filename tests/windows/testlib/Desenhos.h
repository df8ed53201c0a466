// The toolkit there knows no drawings: what the program shows of its own the build has drawn.
#pragma once

constexpr bool leem_se_desenhos = false;
