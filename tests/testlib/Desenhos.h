// Whether the toolkit itself makes a picture of a drawing.
#pragma once

constexpr bool leem_se_desenhos = true;
