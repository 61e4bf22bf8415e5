-- A session of an editor of another make: nvim --headless -u NONE -i NONE -n -c "luafile neovim.lua" FILE
-- mends the two mistakes of FILE with `$ORBEL lsp`, renames an enumeration, asks what may stand behind a control's name,
-- and lays the form out. The status is 0 if the text is after each what it has to be.

local function check(name, found, wanted)
  if not vim.deep_equal(found, wanted) then
    io.stderr:write(("%s: %s in place of %s\n"):format(name, vim.inspect(found), vim.inspect(wanted)))
    vim.cmd("cquit 1")
  end
end

local function wait_for(name, condition)
  check(name, vim.wait(30000, condition, 10), true)
end

local orbel = os.getenv("ORBEL")
local buffer = vim.api.nvim_get_current_buf()
local ended
local id = vim.lsp.start_client({ name = "orbel", cmd = { orbel, "lsp" }, on_exit = function(status) ended = status end })
vim.lsp.buf_attach_client(buffer, id)
local client = vim.lsp.get_client_by_id(id)

local function text()
  return table.concat(vim.api.nvim_buf_get_lines(buffer, 0, -1, false), "\n")
end

local function place_of(word, offset)
  local before = text():sub(1, text():find(word, 1, true) + (offset or 0) - 1)
  local row = select(2, before:gsub("\n", ""))
  vim.api.nvim_win_set_cursor(0, { row + 1, #before:match("[^\n]*$") })
  return vim.lsp.util.make_position_params(0, client.offset_encoding)
end

local function ask(method, params)
  local answers, failure = vim.lsp.buf_request_sync(buffer, method, params, 30000)
  check(method, failure, nil)
  check(method, answers[id].error, nil)
  return answers[id].result
end

local function codes()
  local found = {}
  for _, diagnostic in ipairs(vim.diagnostic.get(buffer)) do
    table.insert(found, diagnostic.code or diagnostic.user_data.lsp.code)
  end
  table.sort(found)
  return found
end

wait_for("diagnostics", function() return #codes() == 2 end)
check("codes", codes(), { "class-unknown", "label-hidden" })

for _, word in ipairs({ "ComboBux", 'labelText' }) do
  local params = place_of(word, 1)
  params.range = { start = params.position, ["end"] = params.position }
  params.context = { diagnostics = vim.lsp.diagnostic.get_line_diagnostics(buffer, params.position.line) }
  vim.lsp.util.apply_workspace_edit(ask("textDocument/codeAction", params)[1].edit, client.offset_encoding)
end
wait_for("mended", function() return #codes() == 0 end)

local rename = place_of('name="Mode"', 6)
rename.newName = "Kind"
vim.lsp.util.apply_workspace_edit(ask("textDocument/rename", rename), client.offset_encoding)
check("renamed", select(2, text():gsub("Kind", "")), 3)
check("forgotten", select(2, text():gsub("Mode", "")), 0)

-- Behind a letter of two UTF-16 units.
local row = place_of("gain.setValue").position.line
vim.api.nvim_buf_set_lines(buffer, row, row, true, { "    /* \u{1d56b} */ gain. " })
local labels = {}
for _, item in ipairs(ask("textDocument/completion", place_of("*/ gain.", 8)).items) do
  labels[item.label] = true
end
check("completion", labels.maximum, true)
vim.api.nvim_buf_set_lines(buffer, row, row + 1, true, {})

-- What only a run finds comes a second after the typing.
row = place_of("mode.currentValueChanged").position.line
vim.api.nvim_buf_set_lines(buffer, row, row, true, { "throw new Error('told');" })
wait_for("run", function() return vim.tbl_contains(codes(), "script-exception") end)
vim.api.nvim_buf_set_lines(buffer, row, row + 1, true, {})
wait_for("mended run", function() return #codes() == 0 end)

local file = vim.fn.tempname()
vim.fn.writefile(vim.split(text(), "\n"), file)
vim.fn.system({ orbel, "format", file })
vim.lsp.buf.formatting_sync({ tabSize = 2, insertSpaces = true }, 30000)
check("layout", text(), table.concat(vim.fn.readfile(file), "\n"))

client.stop()
wait_for("end", function() return ended ~= nil end)
check("status", ended, 0)
vim.cmd("quitall!")
