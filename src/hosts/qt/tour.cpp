#include "hosts/qt/tour.h"
#include <QString>
int PlayTour(int, char **, const QString &) {
    return 1;
}
