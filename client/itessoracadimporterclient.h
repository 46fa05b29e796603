// SPDX-License-Identifier: Apache-2.0
// The host's door to the import.
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

/// One object serves one import at a time, on the thread that calls it. What the lists point at
/// belongs to the host; the lists themselves are the object's.
class ITessoraCADImporterClient : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ITessoraCADImporterClient";

    /// The whole import; blocks until the server has gone. `environmentFile` (may be empty) has
    /// lines NAME=VALUE that the server's environment gets for the run. `arguments` go to the
    /// server in front of the client's own words; the word behind "-OutputBaseName" names the
    /// model file and the exported files. `exportedFiles` is replaced by the paths of the exported
    /// files, unless the run ends before it looks for them. True when there are exported files or
    /// coordinate systems; hasResults tells whether there are models. The reserved values are not
    /// read.
    virtual bool importModel(const KorString& environmentFile, const KorString& serverProgram,
                             const std::list<KorString>& arguments, IZelImportTarget* importTarget,
                             void* reserved1, void* reserved2,
                             std::list<KorString>& exportedFiles) = 0;
    /// False, always.
    virtual bool reservedQuery() = 0;
    /// Notes that the user asked to stop. A run under way goes on until its server has gone.
    virtual void setEscaped() = 0;
    /// Notes that the server has finished.
    virtual void setFinished() = 0;
    /// Takes "-ControlSocket", "-DataSocket" and "-ResultFile" out of the list. While a server
    /// runs, the list goes to it over the control connection instead, and is lost where there is
    /// none.
    virtual void setParameters(const std::list<KorString>& parameters) = 0;
    /// Both set the one host of the server; the last call decides. An empty host means that no
    /// server is started and the model file already there is read.
    virtual void setControlSocket(const KorString& host, std::uint16_t port) = 0;
    virtual void setDataSocket(const KorString& host, std::uint16_t port) = 0;
    /// One entry per model of the last run, from the host's own IZelImportedModel::modelEntry.
    virtual std::list<void*>& models() = 0;
    /// Copies of the coordinate systems of the last run and of their bit vectors, at the same
    /// positions; true when there are any. The objects come without a reference.
    virtual bool coordinateSystems(std::list<IZelFeature*>& features,
                                   std::list<BitVector*>& masks) = 0;
    virtual bool hasResults() = 0;
};
