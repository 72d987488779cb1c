#include "core/HostDocument.h"

#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbHostApplicationServices.h"

KvApDocument* CurrentHostDocument() {
    KvApDocManager* const manager = kvDocManagerPtr();
    return manager != nullptr ? manager->curDocument() : nullptr;
}

KvDbDatabase* DatabaseOf(const KvApDocument* document) {
    return document != nullptr ? document->database() : nullptr;
}

KvDbUndoController* UndoControllerOf(const KvDbDatabase* database) {
    return database != nullptr ? database->undoController() : nullptr;
}

bool IsCurrentDocumentActive() {
    const KvDbHostApplicationServices* const services = kvdbHostApplicationServices();
    const KvDbDatabase* const working = services != nullptr ? services->workingDatabase() : nullptr;
    return working != nullptr && working == DatabaseOf(CurrentHostDocument());
}

void FocusMainWindow() {
    if (CWnd* const mainWindow = AfxGetMainWnd()) {
        mainWindow->SetFocus();
    }
}
