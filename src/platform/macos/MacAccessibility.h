#pragma once

#include "platform/Accessibility.h"

namespace ravlin {

// The accessibility interface of Application Services. Elements are held as
// retained AXUIElement references inside AXElement handles.
class MacAccessibility final : public Accessibility {
public:
    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    AXElement systemWideElement() override;
    AXElement applicationElement(std::int32_t pid) override;
    AXResult<AXElement> elementAtPosition(const AXElement& root, float x, float y) override;
    AXResult<AXValue> copyAttributeValue(const AXElement& element,
                                         const QString& attribute) override;
    AXResult<QStringList> copyActionNames(const AXElement& element) override;
    int performAction(const AXElement& element, const QString& action) override;
    AXResult<std::int32_t> pid(const AXElement& element) override;
    int setMessagingTimeout(const AXElement& element, float seconds) override;
};

} // namespace ravlin
