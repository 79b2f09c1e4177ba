#pragma once

class FoldHeader;

/// What assistive tools are told of a caption that folds: a button that is expanded or collapsed.
namespace FoldHeaderAccessible
{

/// Makes the captions known to Qt's accessibility; further calls do nothing.
void install();

void tellState(FoldHeader* header);

} // namespace FoldHeaderAccessible
