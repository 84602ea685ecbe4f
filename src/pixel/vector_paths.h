// The one switch between the vector and the scalar forms of every row
// kernel that blends bytes: composition, the pen and all that comes. Both
// forms give the same bytes; the vector ones run where the processor has
// AVX2, and tests turn them off to check the scalar ones.
#pragma once

// The processor has the vector forms.
bool VectorPathsAvailable();
// The vector forms are in use.
bool VectorPaths();
// Turns the vector forms on (only where available) or off; answers whether
// they are now in use.
bool UseVectorPaths(bool wanted);
