import assert from 'node:assert/strict'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { Data, Server } from './support/server.mjs'

// The rest of the suite runs a stand-in; here the server runs its own workers.
describe('the menu of a login', () => {
  let data
  let server
  before(async () => {
    data = new Data()
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
