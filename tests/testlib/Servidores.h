// Whether this edition of the program reaches database servers.
#pragma once

constexpr bool chega_se_a_servidores = true;
