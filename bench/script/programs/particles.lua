local function make(i) return {x = i, y = i + i, dx = 1, dy = -1} end
local function step(all, n)
  for i = 1, n do
    local p = all[i]
    p.x = p.x + p.dx
    p.y = p.y + p.dy
    if p.x > 100 then p.dx = -1 end
    if p.y < 0 then p.dy = 1 end
  end
end
local all, total = {}, 0
for i = 0, 999 do all[#all + 1] = make(i % 90) end
for i = 0, 999 do step(all, 1000) end
for i = 1, 1000 do total = total + all[i].x + all[i].y end
print(total)
