#include "acdocman.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)

AcApDocManagerReactor::AcApDocManagerReactor() : m_veto(false) {}

void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentLockModeWillChange(AcApDocument*, int, int, int, const ACHAR*) {
}
void AcApDocManagerReactor::documentLockModeChangeVetoed(AcApDocument*, const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChanged(AcApDocument*, int, int, int, const ACHAR*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivationModified(bool) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
