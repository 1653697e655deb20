#pragma once

/// Whether row loops compiled for AVX2 run here: the processor has it, and it is allowed. The result of every loop is
/// the same either way.
bool usesAvx2();
void allowAvx2(bool allowed);  ///< false holds the portable loops to the same tests
