#pragma once
// Everything a host of AvlorLogic needs in one include. The six public classes
// and the confidentiality enumeration, the late-bound creation and calls, the
// choice of the practice database and the message-box interface.
#include "avlor/access/clsUtenti.h"
#include "avlor/access/fbLivRiservatezza.h"
#include "avlor/component/ClsParcella.h"
#include "avlor/component/LateBound.h"
#include "avlor/core/Messages.h"
#include "avlor/data/Database.h"
#include "avlor/data/queries/clsAnagrafica.h"
#include "avlor/data/queries/clsDataBase.h"
#include "avlor/data/queries/clsFatture.h"
#include "avlor/data/queries/clsPratica.h"
