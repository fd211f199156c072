#include "baseinterface.h"

InterfaceServer::~InterfaceServer() {}
BaseInterface* InterfaceServer::GetInterface(Interface_ID) {
    return nullptr;
}

BaseInterfaceServer::~BaseInterfaceServer() {}

BaseInterface* BaseInterfaceServer::GetInterface(Interface_ID id) {
    for (int i = 0; i < interfaces.Count(); ++i)
        if (interfaces[i]->GetID() == id)
            return interfaces[i];
    return InterfaceServer::GetInterface(id);
}

int BaseInterfaceServer::NumInterfaces() const {
    return interfaces.Count();
}

BaseInterface* BaseInterfaceServer::GetInterfaceAt(int i) const {
    return i >= 0 && i < interfaces.Count() ? interfaces[i] : nullptr;
}

BaseInterface::~BaseInterface() {}
BaseInterface* BaseInterface::GetInterface(Interface_ID id) {
    return id == GetID() ? this : InterfaceServer::GetInterface(id);
}
Interface_ID BaseInterface::GetID() {
    return Interface_ID();
}
