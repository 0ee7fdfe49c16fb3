// SPDX-License-Identifier: GPL-3.0-or-later
// The component's identities, minted once: the type library's description and the code take them from here alone.
#pragma once

// It takes the identities for sums.
// clang-format off
#define SM_LIBRARY_NAME TarnwickSmPubAcad
#define SM_LIBRARY_ID f1446010-8459-4adc-a8b4-d14804d3f499

#define SM_PLUGIN_INTERFACE_ID 6c55609c-f4f0-4693-8b84-26e687ee4385
#define SM_NATIVE_DOC_INTERFACE_ID e5989d01-2ca0-46c8-bace-3e9dfbedca44
#define SM_PAGE_SETUP_INTERFACE_ID 774f3728-0e7f-4ac2-94e4-8989bdb50ca5
#define SM_TRANSFER_SETTINGS_INTERFACE_ID 8a0bdb42-405c-403d-bb95-2914f6b5d285

#define SM_PLUGIN_CLASS_ID a80eb25c-3937-4062-836a-11c388058516
#define SM_NATIVE_DOC_CLASS_ID 75542e9b-f10d-4c60-9ab7-d2202bfb3e51
#define SM_PAGE_SETUP_CLASS_ID ee391edf-44b7-4436-bdb8-6356fab56146
#define SM_TRANSFER_SETTINGS_CLASS_ID 3e419f94-a6f8-4820-9a9a-ba790b7fa3a7

// clang-format on

// Programs and scripts make the objects by these names.
#define SM_PLUGIN_PROG_ID "TarnwickSmPubAcad.cPlugin"
#define SM_NATIVE_DOC_PROG_ID "TarnwickSmPubAcad.cNativeDoc"
#define SM_PAGE_SETUP_PROG_ID "TarnwickSmPubAcad.cAcadPageSetup"
#define SM_TRANSFER_SETTINGS_PROG_ID "TarnwickSmPubAcad.cAcadTransferSettings"
