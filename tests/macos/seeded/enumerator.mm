// expect: enumeration value 'SMAppServiceStatusNotFound' not handled in switch
#import <ServiceManagement/ServiceManagement.h>
bool seeded()
{
    switch (SMAppService.mainAppService.status) {
    case SMAppServiceStatusNotRegistered:
    case SMAppServiceStatusEnabled:
    case SMAppServiceStatusRequiresApproval:
        return true;
    }
    return false;
}
