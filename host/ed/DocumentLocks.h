#pragma once

#include "acdocman.h"

#include <vector>

struct DocumentLock;

namespace locks
{
/// The strongest of those locks that `wanted` names; kNotLocked when there is none.
enum class Whose { mine, others, all };
AcAp::DocLockMode strongest(const std::vector<DocumentLock>& locks, const AcApDocument* me, Whose wanted);
bool allowsWriting(AcAp::DocLockMode mode);
/// Whether two contexts may hold these at a time.
bool conflict(AcAp::DocLockMode one, AcAp::DocLockMode other);
bool isLock(AcAp::DocLockMode mode);
} // namespace locks
