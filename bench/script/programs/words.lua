local parts, words, letters = {}, 0, 0
for i = 0, 3999 do parts[#parts + 1] = "the " .. i .. " quick foxes " end
local text = table.concat(parts)
local n = #text
for round = 1, 20 do
  local start = 1
  local out = {}
  while start <= n do
    local stop = string.find(text, " ", start, true)
    local word = string.sub(text, start, stop - 1)
    if word == "quick" then words = words + 1 end
    if string.byte(word, 1) > 96 then letters = letters + #word end
    out[#out + 1] = word
    start = stop + 1
  end
  letters = letters + #table.concat(out) % 7
end
print(words + letters)
