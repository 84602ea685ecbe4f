// Q and the context key in a document window act as the right button: a
// press on whatever window of the program lies under the pointer, so that
// a pen without a side switch can take a colour or finish a shape.
#pragma once

// Adds the key rule to documentKeyHooks.
void InstallRightClickKeys();
