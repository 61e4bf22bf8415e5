"use strict";

// Starts `orbel lsp` and hands what VS Code asks about forms to it. By the means of VS Code and Node.js alone: nothing is
// installed, nothing is built.

const { spawn } = require("child_process");
const vscode = require("vscode");

const Forms = { language: "orbel" };
const Triggers = ["<", "\"", "'", ".", ">", "/"];

/** Messages to and from one process. */
class Connection {
    constructor(command, onNotification, onEnd) {
        this.waiting = new Map();
        this.next = 1;
        this.buffer = Buffer.alloc(0);
        this.process = spawn(command, ["lsp"], { stdio: ["pipe", "pipe", "inherit"] });
        this.process.on("error", (error) => onEnd(error.message));
        this.process.on("exit", () => onEnd(""));
        this.process.stdin.on("error", () => {});
        this.process.stdout.on("data", (data) => {
            this.buffer = Buffer.concat([this.buffer, data]);
            this.read(onNotification);
        });
    }

    read(onNotification) {
        for (;;) {
            const end = this.buffer.indexOf("\r\n\r\n");
            const length = end < 0 ? null : /content-length: *(\d+)/i.exec(this.buffer.toString("ascii", 0, end));
            if (!length || this.buffer.length < end + 4 + Number(length[1]))
                return;
            const to = end + 4 + Number(length[1]);
            const message = JSON.parse(this.buffer.toString("utf8", end + 4, to));
            this.buffer = this.buffer.subarray(to);
            if (message.method)
                onNotification(message.method, message.params);
            else
                this.settle(message);
        }
    }

    settle(message) {
        const request = this.waiting.get(message.id);
        this.waiting.delete(message.id);
        if (request && message.error)
            request.reject(new Error(message.error.message));
        else if (request)
            request.resolve(message.result);
    }

    write(message) {
        const text = Buffer.from(JSON.stringify(Object.assign({ jsonrpc: "2.0" }, message)), "utf8");
        this.process.stdin.write(`Content-Length: ${text.length}\r\n\r\n`);
        this.process.stdin.write(text);
    }

    notify(method, params) {
        this.write({ method, params });
    }

    request(method, params, token) {
        const id = this.next++;
        if (token)
            token.onCancellationRequested(() => this.notify("$/cancelRequest", { id }));
        this.write({ id, method, params });
        return new Promise((resolve, reject) => this.waiting.set(id, { resolve, reject }));
    }
}

const toRange = (range) =>
    new vscode.Range(range.start.line, range.start.character, range.end.line, range.end.character);
const toEdit = (edit) => new vscode.TextEdit(toRange(edit.range), edit.newText);
const toLocation = (location) => new vscode.Location(vscode.Uri.parse(location.uri), toRange(location.range));
const fromPosition = (position) => ({ line: position.line, character: position.character });
const fromRange = (range) => ({ start: fromPosition(range.start), end: fromPosition(range.end) });

function toWorkspaceEdit(edit) {
    const all = new vscode.WorkspaceEdit();
    for (const [uri, edits] of Object.entries(edit.changes))
        all.set(vscode.Uri.parse(uri), edits.map(toEdit));
    return all;
}

/** Numbers of the protocol begin at 1 where those of VS Code begin at 0. */
function toDiagnostic(found) {
    const diagnostic = new vscode.Diagnostic(toRange(found.range), found.message, found.severity - 1);
    diagnostic.code = found.code;
    diagnostic.source = found.source;
    return diagnostic;
}

function toCompletion(item) {
    const completion = new vscode.CompletionItem(item.label, item.kind - 1);
    completion.detail = item.detail;
    completion.sortText = item.sortText;
    completion.documentation = item.documentation && new vscode.MarkdownString(item.documentation.value);
    completion.range = toRange(item.textEdit.range);
    completion.insertText
        = item.insertTextFormat === 2 ? new vscode.SnippetString(item.textEdit.newText) : item.textEdit.newText;
    return completion;
}

function toSymbol(symbol) {
    const all = new vscode.DocumentSymbol(symbol.name, symbol.detail, symbol.kind - 1, toRange(symbol.range),
        toRange(symbol.selectionRange));
    all.children = symbol.children.map(toSymbol);
    return all;
}

function toAction(action) {
    const all = new vscode.CodeAction(action.title, vscode.CodeActionKind.Empty.append(action.kind));
    all.edit = toWorkspaceEdit(action.edit);
    all.diagnostics = (action.diagnostics || []).map(toDiagnostic);
    all.isPreferred = action.isPreferred;
    return all;
}

/** What is registered with VS Code for as long as the server runs. */
class Client {
    constructor(command) {
        this.diagnostics = vscode.languages.createDiagnosticCollection("orbel");
        this.connection = new Connection(command, (method, params) => this.hear(method, params),
            (reason) => reason && vscode.window.showErrorMessage(`orbel lsp: ${reason} (setting orbel.command)`));
        this.parts = [this.diagnostics];
        this.ready = this.connection.request("initialize", {
            processId: process.pid,
            rootUri: null,
            capabilities: { textDocument: { completion: { completionItem: { snippetSupport: true } } } },
        });
        this.ready.then(() => this.start(), () => {});
    }

    hear(method, params) {
        if (method === "textDocument/publishDiagnostics")
            this.diagnostics.set(vscode.Uri.parse(params.uri), params.diagnostics.map(toDiagnostic));
    }

    ask(request, document, more, token) {
        const params = Object.assign({ textDocument: { uri: document.uri.toString() } }, more);
        return this.connection.request(`textDocument/${request}`, params, token);
    }

    askAt(request, document, position, token, more) {
        return this.ask(request, document, Object.assign({ position: fromPosition(position) }, more), token);
    }

    start() {
        this.connection.notify("initialized", {});
        this.follow();
        const at = vscode.languages;
        this.parts.push(
            at.registerCompletionItemProvider(Forms, {
                provideCompletionItems: async (document, position, token) => {
                    const list = await this.askAt("completion", document, position, token);
                    return list && list.items.map(toCompletion);
                },
            }, ...Triggers),
            at.registerHoverProvider(Forms, {
                provideHover: async (document, position, token) => {
                    const hover = await this.askAt("hover", document, position, token);
                    return hover && new vscode.Hover(new vscode.MarkdownString(hover.contents.value), toRange(hover.range));
                },
            }),
            at.registerDefinitionProvider(Forms, {
                provideDefinition: async (document, position, token) =>
                    (await this.askAt("definition", document, position, token)).map(toLocation),
            }),
            at.registerReferenceProvider(Forms, {
                provideReferences: async (document, position, context, token) =>
                    (await this.askAt("references", document, position, token, { context })).map(toLocation),
            }),
            at.registerDocumentHighlightProvider(Forms, {
                provideDocumentHighlights: async (document, position, token) =>
                    (await this.askAt("documentHighlight", document, position, token))
                        .map((found) => new vscode.DocumentHighlight(toRange(found.range))),
            }),
            at.registerRenameProvider(Forms, {
                prepareRename: async (document, position, token) =>
                    toRange(await this.askAt("prepareRename", document, position, token)),
                provideRenameEdits: async (document, position, newName, token) =>
                    toWorkspaceEdit(await this.askAt("rename", document, position, token, { newName })),
            }),
            at.registerDocumentSymbolProvider(Forms, {
                provideDocumentSymbols: async (document, token) =>
                    (await this.ask("documentSymbol", document, {}, token)).map(toSymbol),
            }),
            at.registerCodeActionsProvider(Forms, {
                provideCodeActions: async (document, range, context, token) =>
                    (await this.ask("codeAction", document, { range: fromRange(range), context: { diagnostics: [] } }, token))
                        .map(toAction),
            }),
            at.registerDocumentFormattingEditProvider(Forms, {
                provideDocumentFormattingEdits: async (document, options, token) =>
                    (await this.ask("formatting", document, { options }, token)).map(toEdit),
            }),
        );
    }

    /** Tells the server what is open, and each edit. */
    follow() {
        const isForm = (document) => document.languageId === Forms.language;
        const uri = (document) => document.uri.toString();
        const open = (document) => isForm(document) && this.connection.notify("textDocument/didOpen", {
            textDocument: { uri: uri(document), languageId: "orbel", version: document.version, text: document.getText() },
        });
        vscode.workspace.textDocuments.forEach(open);
        this.parts.push(
            vscode.workspace.onDidOpenTextDocument(open),
            vscode.workspace.onDidCloseTextDocument((document) => isForm(document)
                && this.connection.notify("textDocument/didClose", { textDocument: { uri: uri(document) } })),
            vscode.workspace.onDidChangeTextDocument((event) => isForm(event.document) && event.contentChanges.length > 0
                && this.connection.notify("textDocument/didChange", {
                    textDocument: { uri: uri(event.document), version: event.document.version },
                    contentChanges: event.contentChanges.map(
                        (change) => ({ range: fromRange(change.range), text: change.text })),
                })),
        );
    }

    async stop() {
        this.parts.forEach((part) => part.dispose());
        await this.connection.request("shutdown").catch(() => {});
        this.connection.notify("exit");
    }
}

let client;

function start() {
    client = new Client(vscode.workspace.getConfiguration("orbel").get("command"));
}

function activate(context) {
    start();
    context.subscriptions.push(vscode.commands.registerCommand("orbel.restart", async () => {
        await client.stop();
        start();
    }));
}

function deactivate() {
    return client && client.stop();
}

module.exports = { activate, deactivate };
