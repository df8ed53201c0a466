// This edition of the program reaches no database servers.
#pragma once

constexpr bool chega_se_a_servidores = false;
