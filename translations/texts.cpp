#include <QtCore/qglobal.h>

/** Keeps the compiled texts, which lie in a static library, from being dropped by the linker. */
void linkTavimoTexts();
int qInitResources_tavimo_texts_qm();

void linkTavimoTexts()
{
    qInitResources_tavimo_texts_qm();
}
