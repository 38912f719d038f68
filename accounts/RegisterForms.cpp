#include "accounts/RegisterForms.h"

#include "accounts/AddIncentives.h"
#include "accounts/DisplayAccount.h"
#include "platform/forms/DefaultForms.h"

void RegisterAccountForms() {
    RegisterFormClass<DisplayAccount>();
    RegisterFormClass<AddIncentives>();
}
