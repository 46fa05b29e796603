// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's access to the import.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/text/korstring.h"

#include <cstdint>
#include <list>

class BitVector;
class IZelFeature;
class IZelImportTarget;

/// The class of the import client, for IZelComponent::createInstance of the import module.
inline constexpr ZelGuid zelImportClientClassId{
    0x53DE97AC, 0x2769, 0x4D39, {0xAD, 0xBD, 0x37, 0x31, 0x20, 0xB9, 0x81, 0x8F}};

/// An import client. One object serves one import at a time, on the thread that calls it. What the
/// lists point to belongs to the host; the lists themselves belong to the object.
class ITessoraCADImporterClient : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ITessoraCADImporterClient";

    /// Does the whole import and blocks until the server has gone.
    ///
    /// `environmentFile` may be empty; its lines NAME=VALUE are set in the server's environment for
    /// the run. `arguments` are passed to the server before the client's own words; the word after
    /// "-OutputBaseName" names the model file and the exported files. `exportedFiles` is replaced
    /// by the paths of the exported files, unless the run ends before it looks for them. The
    /// reserved values aren't read.
    ///
    /// True when there are exported files or coordinate systems; models() tells whether there are
    /// models.
    virtual bool importModel(const KorString& environmentFile, const KorString& serverProgram,
                             const std::list<KorString>& arguments, IZelImportTarget* importTarget,
                             void* reserved1, void* reserved2,
                             std::list<KorString>& exportedFiles) = 0;
    /// Reserved; always false.
    virtual bool reservedQuery() = 0;
    /// Records that the user asked to stop. A run in progress goes on until its server has gone.
    virtual void setEscaped() = 0;
    /// Records that the server has finished.
    virtual void setFinished() = 0;
    /// Takes "-ControlSocket", "-DataSocket" and "-ResultFile" out of the list. While a server
    /// runs, the list is sent to it over the control connection instead, and lost when there is
    /// none.
    virtual void setParameters(const std::list<KorString>& parameters) = 0;
    /// Both set the one host of the server; the last call wins. An empty host means that no server
    /// is started and an existing model file is read.
    /// @{
    virtual void setControlSocket(const KorString& host, std::uint16_t port) = 0;
    virtual void setDataSocket(const KorString& host, std::uint16_t port) = 0;
    /// @}
    /// One entry for each model of the last run, from IZelImportedModel::modelEntry().
    virtual std::list<void*>& models() = 0;
    /// Copies the coordinate systems of the last run and their bit vectors, at the same positions.
    /// True when there are any. The objects come without a reference.
    virtual bool coordinateSystems(std::list<IZelFeature*>& features,
                                   std::list<BitVector*>& masks) = 0;
    /// Whether the last run yielded models or coordinate systems.
    virtual bool hasResults() = 0;
};
