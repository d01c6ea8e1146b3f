#pragma once

#include "play/SScene.h"

class QDialog;

/// What a user does with the keys, and how a question is answered.
namespace KeyGestures {

/// One of those that move, fold and select; the second number chooses what is held meanwhile.
void PressKey(SScene& scene, int nFirst, int nSecond);

/// F2, a name, and then Return, a click elsewhere, or a change of the rows that takes the editor.
void Rename(SScene& scene, int nFirst, int nSecond);

/// By the key, or by the button of the tool bar and its question.
void Delete(SScene& scene, int nFirst, int nSecond);

/// Yes, or that option.
void Agree(QDialog* pDialog, int nOption);

/// Shift and Ctrl are let go.
void LetGo(SScene& scene);

} // namespace KeyGestures
