import assert from 'node:assert/strict'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { engines } from './support/engines.mjs'
import { Data, Server, right } from './support/server.mjs'

/** The rows of a tree or list that the session has told of until now. */
function rowsOf(page, window, name) {
  const told = page.lines.flatMap((line) => line.changes ?? [])
  return told.filter((change) => change.rows === window && change.name === name).flatMap((change) => change.items)
}

// The rest of the suite runs a stand-in on one engine; here the server runs its own workers on each.
for (const engine of engines) describe(`the menu of a login on ${engine.name}`, () => {
  let data
  let server
  before(async () => {
    data = new Data(engine)
    server = await Server.start(data, { real: true })
  })
  after(async () => {
    await server.stop()
    data.remove()
  })

  it('comes as a snapshot, and again after a reload', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    const first = await page.snapshot()
    assert.deepEqual([first.seq, first.ack], [1, 0])
    assert.ok(first.changes.some((change) => change.open === 1 && change.class === 'TMainForm'))
    assert.ok(first.changes.some((change) => change.component === 1 && change.name === 'MenuTree'))
    await page.event({ do: 'view', window: 1, name: 'MenuTree', first: 0, last: 10 })
    await page.close()
    const again = await Page.open(server, cookie)
    assert.deepEqual((await again.snapshot()).changes, first.changes)
    await again.close()
  })

  it('is for those who know the password of an account in use', async () => {
    assert.equal((await server.logIn('admin', 'wrong')).status, 401)
    assert.equal((await server.logIn('ADMIN', right)).status, 401)
    assert.equal((await server.logIn(data.disabled, right)).body.reason, 'disabled')
    assert.deepEqual((await server.logIn(data.reset, right)).status, 403)
    const changed = await server.logIn(data.reset, right, { newPassword: 'Another-1' })
    assert.equal(changed.status, 200)
    assert.equal((await server.logIn(data.reset, 'Another-1')).status, 200)
  })

  it('opens a console, whose changes are in the tables', async () => {
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    const entries = rowsOf(page, 1, 'MenuTree')
    const entry = entries.find((row) => row.cells[0] === '域管理')
    const opened = await page.event({ do: 'activate', window: 1, name: 'MenuTree', id: entry.id })
    const { open: window } = opened.find((change) => change.class === 'TFormDomains')
    assert.ok(rowsOf(page, window, 'DomainTree').length > 1)
    const asked = await page.event({ do: 'act', window, name: 'ActDomainNew' })
    const { open: dialog } = asked.find((change) => change.open)
    await page.event({ do: 'set', window: dialog, name: 'EditName', value: "O'Neil\\华东 😀" })
    await page.event({ do: 'set', window: dialog, name: 'EditCode', value: 'Z9' })
    await page.event({ do: 'act', window: dialog, name: 'BitBtnOk' })
    assert.equal(data.sql("select Name from STDomains where Code = 'Z9'"), "O'Neil\\华东 😀")
    await page.close()
  })

  it('lets nobody call a function or open an entry by its name', async () => {
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    for (const event of [{ do: 'call', function: 'IsManager', in: {} }, { do: 'menu', function: 'FormDomains' }]) {
      const from = page.lines.length
      const n = page.tell(event)
      const refusal = await page.line((line) => line.error !== undefined, 'refusal', from)
      assert.equal(refusal.n, n)
    }
    await page.close()
  })

  it('ends in order with its login', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    await page.snapshot()
    await server.post('/api/logout', {}, { cookie })
    assert.deepEqual(await page.bye(), { bye: 'ended' })
    assert.equal((await server.stop()).code, 0)
    assert.match(data.log(), /operation="worker end" outcome="exit status 0"/)
    assert.doesNotMatch(data.log(), /killed by signal/)
  })
})
