#include "KRGeoPositionRect.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRGeoPosition.h>

#include <cstdio>

int main()
{
    const KRGeoPosition oldenburg(53.14118, 8.21467);
    const KRGeoPosition bremen(53.0792962, 8.806422);
    const KRGeoPositionRect area = KRGeoPositionRect::spawn(oldenburg, bremen);
    if (!area.contains(KRGeoPosition(53.1, 8.5)))
        return 1;
    std::printf("Oldenburg to Bremen: %d km\n", KRMath::toInt(oldenburg.distance(bremen)));
    return 0;
}
