#include "dbapserv.h"

#include "dbplotsetval.h"

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}

AcDbPlotSettingsValidator* AcDbHostApplicationServices::plotSettingsValidator() const
{
    static AcDbPlotSettingsValidator validator;
    return &validator;
}
